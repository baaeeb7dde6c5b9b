#include "office/records/WriteRights.h"

#include "OfficeDatabase.h"

#include <gtest/gtest.h>

#include <array>

namespace Quillane::Office {
namespace {

TEST(WriteRights, OwnListNamesTheSignInThatMayChangeIt) {
    EXPECT_EQ(WhyReadOnly({.mayWrite = false,
                           .isOfStations = true,
                           .owner = "dbo",
                           .database = "Account1",
                           .signIn = "Gate1"}),
              "The sign-in \"Gate1\" may read this list, but not change it. It is a table of the "
              "stations in the database Account1. Start the office with the sign-in of the "
              "database owner, by the option --sign-in.");
}

TEST(WriteRights, ListOfAnAccountingDatabaseNamesItsOwner) {
    EXPECT_EQ(WhyReadOnly({.mayWrite = false,
                           .isOfStations = false,
                           .owner = "dbo",
                           .database = "Account1",
                           .signIn = "Gate1"}),
              "The sign-in \"Gate1\" may read this list, but not change it. It belongs to the "
              "accounting database Account1, owner dbo. Change it in the accounting program.");
}

TEST(WriteRights, OwnerOfTheDatabaseMayWriteEveryList) {
    OfficeDatabase database;
    for (const Table* table : AllTables())
        for (const Part& part : table->parts)
            EXPECT_EQ(WhyReadOnly(database.connection, std::array{part.table}), "");
}

} // namespace
} // namespace Quillane::Office
