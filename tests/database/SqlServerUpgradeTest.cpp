// Schema versions and upgrade steps on SQL Server.

#include "database/SqlServerSite.h"

#include "platform/runtime/Failure.h"
#include "setup/DatabaseSetup.h"
#include "setup/SchemaUpgrade.h"
#include "support/BoxAnswers.h"

#include <array>
#include <thread>

namespace Quillane {

namespace {

using Testing::BoxAnswers;

Box Warned(const std::string& text) {
    return {
        .text = text, .title = "Quillane", .icon = BoxIcon::Exclamation, .buttons = BoxButtons::Ok};
}

} // namespace

class SqlServerUpgrade : public SqlServerSite {
protected:
    void SetUp() override {
        SqlServerSite::SetUp();
        if (Con)
            SetUpStation();
    }
    void Run(const std::string& statement) { Con->Execute(statement); }
    bool Has(const std::string& table) {
        return Ask("Select Count(*) From INFORMATION_SCHEMA.TABLES Where TABLE_NAME = '" + table +
                   "'") == "1";
    }
    void UpgradeAs(Connection& connection) {
        DatabaseSetupObject setup;
        setup.SetConnection(connection);
        ASSERT_NE(setup.DatabaseVersion(), setup.ProgramVersion());
        setup.UpgradeDatabase();
    }
};

TEST_F(SqlServerUpgrade, ReadsTheNumber) {
    struct Case {
        const char* statement;
        double version;
    };
    constexpr Case cases[] = {
        {"Update StationSchema Set SchemaVersion = 1", 1},
        {"Update StationSchema Set SchemaVersion = 1.5", 1.5},
        {"Update StationSchema Set SchemaVersion = -3", UnreadableSchemaVersion},
        {"Insert Into StationSchema (SchemaVersion) Values (1)", UnreadableSchemaVersion},
        {"Delete From StationSchema", 0},
        {"Drop Table StationSchema", 0},
    };
    for (const Case& each : cases) {
        Run(each.statement);
        EXPECT_EQ(ReadSchemaVersion(*Con), each.version) << each.statement;
    }
}

TEST_F(SqlServerUpgrade, TheOwnerUpgradesADatabaseWithoutTheStationsTables) {
    for (const char* table : {"StationSchema", "StationUsers", "Project_Registry"})
        Run("Drop Table " + std::string(table));
    UpgradeAs(*Con);
    EXPECT_EQ(ReadSchemaVersion(*Con), SchemaVersionOfProgram());
    EXPECT_EQ(RowsOf(*Con, "Select registrykey, value From Project_Registry"),
              std::vector<std::string>{"CompanyName|"});
    RoleMember station(*Con, *database, "StationOperator");
    EXPECT_EQ(station.connection->Execute("Select * From StationUsers").RecordCount(), 0);
}

TEST_F(SqlServerUpgrade, TheOwnerUpgradesAnOlderVersionAndKeepsAllRows) {
    const auto contents = ContentsOf(*Con);
    Run("Update StationSchema Set SchemaVersion = 0.5");
    UpgradeAs(*Con);
    EXPECT_EQ(ContentsOf(*Con), contents);
}

TEST_F(SqlServerUpgrade, AStationWithoutTheRightReportsWhatToDo) {
    Run("Update StationSchema Set SchemaVersion = 0.5");
    RoleMember station(*Con, *database, "StationOperator");
    const auto catalogue = CatalogueOf(*Con);
    const auto contents = ContentsOf(*Con);
    BoxAnswers answers;
    answers.Expect(Warned(
        "The schema version of the database is 0.5; this program needs 2. This station's sign-in "
        "may not change the database. Ask the person who maintains the database to start a "
        "station once with the sign-in of the database's owner, or to run these scripts of the "
        "folder database/sqlserver: upgrade/to-1.sql, upgrade/to-2.sql, roles.sql, guards.sql."));
    UpgradeAs(*station.connection);
    EXPECT_EQ(CatalogueOf(*Con), catalogue);
    EXPECT_EQ(ContentsOf(*Con), contents);
}

TEST_F(SqlServerUpgrade, OnlyTheOwnerMayChangeTheSchema) {
    RoleMember station(*Con, *database, "StationOperator");
    EXPECT_TRUE(MayChangeSchema(*Con));
    EXPECT_FALSE(MayChangeSchema(*station.connection));
}

TEST_F(SqlServerUpgrade, ANewerVersionIsReportedAndNotChanged) {
    Run("Update StationSchema Set SchemaVersion = 99");
    BoxAnswers answers;
    answers.Expect(
        Warned("The schema version of the database is 99, newer than that of this program (2). "
               "Nothing was changed. Install the newer program."));
    UpgradeAs(*Con);
    EXPECT_EQ(ReadSchemaVersion(*Con), 99);
}

TEST_F(SqlServerUpgrade, RunsTheMissingStepsInOrder) {
    constexpr std::array steps{
        SchemaStep{1, "Create Table Never (Id int)"},
        SchemaStep{1.5, "Create Table Half (Id int)\nGO\nInsert Into Half Values (1)\nGO\n"},
        SchemaStep{2,
                   "Insert Into Half Values (2)\nGO\nUpdate Half Set Id = 9 Where 'a;b' = 'a;b'"}};
    Run("Update StationSchema Set SchemaVersion = 1");
    RunSqlServerSchemaSteps(*Con, 1, steps);
    EXPECT_EQ(ReadSchemaVersion(*Con), 2);
    EXPECT_FALSE(Has("Never"));
    EXPECT_EQ(Ask("Select Count(*) From Half Where Id = 9"), "2");
}

TEST_F(SqlServerUpgrade, RollsAFailedStepBackAndKeepsEarlierSteps) {
    constexpr std::array steps{
        SchemaStep{2, "Create Table Good (Id int)"},
        SchemaStep{3, "Create Table Lost (Id int)\nGO\nInsert Into NoSuchTable Values (1)"},
        SchemaStep{4, "Create Table Later (Id int)"}};
    Run("Update StationSchema Set SchemaVersion = 1");
    EXPECT_THROW(RunSqlServerSchemaSteps(*Con, 1, steps), Failure);
    EXPECT_EQ(ReadSchemaVersion(*Con), 2);
    EXPECT_TRUE(Has("Good"));
    EXPECT_FALSE(Has("Lost"));
    EXPECT_FALSE(Has("Later"));
}

TEST_F(SqlServerUpgrade, TheLastStepUpdatesTheRightsOfTheRoles) {
    constexpr std::array steps{SchemaStep{
        2, "Create Table GateSamples (Id int, TakenFrom int References Arrivals (ArrivalID))"}};
    RoleMember station(*Con, *database, "StationOperator");
    Run("Update StationSchema Set SchemaVersion = 1");
    RunSqlServerSchemaSteps(*Con, 1, steps);
    EXPECT_EQ(
        station.connection->Execute("Select TOP 1 * From GateSamples Where TakenFrom=1034").State(),
        adStateOpen);
}

TEST_F(SqlServerUpgrade, RevokesTheRightsOnTablesThatStationsHadBefore) {
    const std::string query = "Select * From dbo.PurchaseBody";
    RoleMember station(*Con, *database, "StationOperator");
    Run("Grant Select, Delete On dbo.PurchaseBody To StationOperator");
    EXPECT_GT(station.connection->Execute(query).RecordCount(), 0);
    Run("Update StationSchema Set SchemaVersion = 1");
    UpgradeAs(*Con);
    EXPECT_THROW(station.connection->Execute(query), Failure);
    EXPECT_THROW(station.connection->Execute("Delete From dbo.PurchaseBody"), Failure);
    EXPECT_GT(station.connection->Execute("Select * From PurchaseBody").RecordCount(), 0);
}

TEST_F(SqlServerUpgrade, OfStationsThatStartTogetherOneRunsTheStep) {
    Run("Create Table Once (Id int)");
    constexpr std::array steps{SchemaStep{2, "Insert Into Once Values (1)"}};
    Run("Update StationSchema Set SchemaVersion = 1");
    std::vector<std::thread> stations;
    for (int count = 0; count < 4; ++count)
        stations.emplace_back([&] {
            try {
                Connection connection;
                connection.Open(database->ConnectionString());
                RunSqlServerSchemaSteps(connection, 1, steps);
            } catch (const Failure& failure) {
                ADD_FAILURE() << failure.Description();
            }
        });
    for (std::thread& station : stations)
        station.join();
    EXPECT_EQ(Ask("Select Count(*) From Once"), "1");
    EXPECT_EQ(ReadSchemaVersion(*Con), 2);
}

// ---- set-up on an existing database ----

TEST_F(SqlServerUpgrade, SetUpRunsTheMissingSteps) {
    Run("Drop Table StationUsers");
    Run("Update StationSchema Set SchemaVersion = 0.5");
    SetUpStation();
    EXPECT_EQ(ReadSchemaVersion(*Con), 2);
    EXPECT_EQ(RowsOf(*Con, "Select UserName From StationUsers"), std::vector<std::string>{"Nadia"});
}

TEST_F(SqlServerUpgrade, SetUpDoesNotChangeADatabaseOfANewerProgram) {
    struct Case {
        const char* statement;
        const char* words;
    };
    constexpr Case cases[] = {
        {"Update StationSchema Set SchemaVersion = 99",
         "The schema version of the database is 99, newer than that of this program (2). Nothing "
         "was changed. Install the newer program."},
        {"Insert Into StationSchema (SchemaVersion) Values (1)",
         "The schema version of the database cannot be read: the table StationSchema must contain "
         "one row with a number. Nothing was changed."},
    };
    for (const Case& each : cases) {
        Run(each.statement);
        const auto catalogue = CatalogueOf(*Con);
        const auto contents = ContentsOf(*Con);
        try {
            SetUpStation();
            ADD_FAILURE() << each.statement;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Description(), each.words);
        }
        EXPECT_EQ(CatalogueOf(*Con), catalogue);
        EXPECT_EQ(ContentsOf(*Con), contents);
    }
}

} // namespace Quillane
