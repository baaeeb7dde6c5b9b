#include "setup/SchemaUpgrade.h"

#include "station/SampleDatabase.h"

#include "data/Catalogue.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <array>

namespace Quillane {
namespace {

class Upgrade : public testing::Test {
protected:
    void Run(const char* statement) { database.connection.Execute(statement); }
    double Version() { return ReadSchemaVersion(database.connection); }

    SampleDatabase database;
};

TEST_F(Upgrade, ReadsTheNumber) {
    struct Case {
        const char* statement;
        double version;
    };
    constexpr Case cases[] = {
        {"Update StationSchema Set SchemaVersion = 1", 1},
        {"Update StationSchema Set SchemaVersion = 1.5", 1.5},
        {"Update StationSchema Set SchemaVersion = 'one'", UnreadableSchemaVersion},
        {"Update StationSchema Set SchemaVersion = -3", UnreadableSchemaVersion},
        {"Insert Into StationSchema (SchemaVersion) Values (1)", UnreadableSchemaVersion},
        {"Delete From StationSchema", 0},
        {"Drop Table StationSchema", 0},
    };
    for (const Case& each : cases) {
        Run(each.statement);
        EXPECT_EQ(Version(), each.version) << each.statement;
    }
}

TEST_F(Upgrade, OfTheProgramIsThatOfANewDatabase) {
    EXPECT_EQ(Version(), SchemaVersionOfProgram());
}

TEST_F(Upgrade, RunsTheMissingStepsInOrder) {
    constexpr std::array steps{
        SchemaStep{1, "Create Table Never (Id Integer);"},
        SchemaStep{1.5, "Create Table Half (Id Integer); Insert Into Half Values (1);"},
        SchemaStep{2, "-- a remark; with a semicolon\nInsert Into Half Values (2);\n"
                      "Update Half Set Id = 9 Where 'a;b' = 'a;b';"}};
    RunSchemaSteps(database.connection, 1, steps);
    EXPECT_EQ(Version(), 2);
    EXPECT_FALSE(TableExists(database.connection, "Never"));
    EXPECT_EQ(database.Ask("Select Count(*) From Half Where Id = 9").Number(), 2);
}

TEST_F(Upgrade, RollsAFailedStepBackAndKeepsEarlierSteps) {
    constexpr std::array steps{SchemaStep{2, "Create Table Good (Id Integer);"},
                               SchemaStep{3, "Create Table Lost (Id Integer); No Statement;"}};
    EXPECT_THROW(RunSchemaSteps(database.connection, 1, steps), Failure);
    EXPECT_EQ(Version(), 2);
    EXPECT_TRUE(TableExists(database.connection, "good"));
    EXPECT_FALSE(TableExists(database.connection, "Lost"));
}

TEST_F(Upgrade, UpgradesADatabaseWithoutTheStationsTables) {
    Run("Drop Table StationSchema");
    Run("Drop Table StationUsers");
    Run("Drop Table Project_Registry");
    RunSchemaSteps(database.connection, 0, SchemaSteps());
    EXPECT_EQ(Version(), SchemaVersionOfProgram());
    EXPECT_TRUE(TableExists(database.connection, "StationUsers"));
    EXPECT_EQ(database
                  .Ask("Select Count(*) From Project_Registry Where registrykey = "
                       "'CompanyName'")
                  .Number(),
              1);
}

TEST_F(Upgrade, KeepsExistingUsersAndParticulars) {
    Run("Drop Table StationSchema");
    RunSchemaSteps(database.connection, 0, SchemaSteps());
    EXPECT_EQ(database.Ask("Select Count(*) From StationUsers").Number(), 2);
    EXPECT_EQ(
        database.Ask("Select value From Project_Registry Where registrykey = 'CompanyName'").Text(),
        "Veltrane Flour Mills");
}

TEST_F(Upgrade, CopiesTheDatabaseAndReplacesNoCopy) {
    const std::string file = database.connection.DatabaseFile();
    EXPECT_EQ(CopyBeforeUpgrade(database.connection, file, 2),
              database.folder.File("Account1-before-2.db"));
    Run("Delete From PurchaseBody");
    EXPECT_EQ(CopyBeforeUpgrade(database.connection, file, 2),
              database.folder.File("Account1-before-2-2.db"));
    const EmbeddedDatabase copy =
        LookAtEmbeddedDatabase(database.folder.File("Account1-before-2.db"));
    EXPECT_EQ(copy.kind, EmbeddedDatabase::Kind::OfStations);
    EXPECT_EQ(copy.arrivals, 12);
    EXPECT_FALSE(database.folder.Has("Account1.db.copy"));
}

TEST_F(Upgrade, CopiesTheDatabaseOnlyForOwnerAndGroup) {
    const std::string copy =
        CopyBeforeUpgrade(database.connection, database.connection.DatabaseFile(), 2);
    constexpr auto others = std::filesystem::perms::others_all;
    EXPECT_EQ(std::filesystem::status(copy).permissions() & others, std::filesystem::perms::none);
}

TEST_F(Upgrade, FindsTablesIgnoringCase) {
    EXPECT_TRUE(TableExists(database.connection, "arrivals"));
    EXPECT_FALSE(TableExists(database.connection, "arrival"));
}

} // namespace
} // namespace Quillane
