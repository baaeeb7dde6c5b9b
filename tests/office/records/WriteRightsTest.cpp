#include "office/records/WriteRights.h"

#include "OfficeDatabase.h"

#include <gtest/gtest.h>

#include <array>

namespace Quillane::Office {
namespace {

TEST(WriteRights, ListOfTheStationsSaysWhichSignInMayChangeIt) {
    EXPECT_EQ(WhyReadOnly({.mayWrite = false,
                           .madeHere = true,
                           .owner = "dbo",
                           .database = "Account1",
                           .signIn = "Gate1"}),
              "The sign-in \"Gate1\" may read this list, but not change it. It belongs to the "
              "stations' own tables in the database Account1: please start the office with the "
              "sign-in of the database's owner, by the option --sign-in.");
}

TEST(WriteRights, ListOfAnAccountingDatabaseSaysWhoseItIs) {
    EXPECT_EQ(WhyReadOnly({.mayWrite = false,
                           .madeHere = false,
                           .owner = "dbo",
                           .database = "Account1",
                           .signIn = "Gate1"}),
              "The sign-in \"Gate1\" may read this list, but not change it. It belongs to the "
              "accounting database Account1, owner dbo: please change it in the program that keeps "
              "it there.");
}

TEST(WriteRights, OwnerOfTheDatabaseMayWriteEveryList) {
    OfficeDatabase database;
    for (const Table* table : AllTables())
        for (const Part& part : table->parts)
            EXPECT_EQ(WhyReadOnly(database.connection, std::array{part.table}), "");
}

} // namespace
} // namespace Quillane::Office
