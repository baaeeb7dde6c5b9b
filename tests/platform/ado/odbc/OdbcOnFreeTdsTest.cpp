#include "platform/ado/Connection.h"
#include "servers/DeafPort.h"
#include "servers/TdsServer.h"
#include "support/FailureOf.h"
#include "support/SkipIfMissing.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace Quillane {

namespace {

using Texts = std::vector<std::string>;

bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

constexpr auto lost =
    "\nThe connection to the database server is lost. Restart the program to reconnect.";

/// The driver that a station uses for SQL Server on Linux, and a server with its protocol.
class OdbcOnFreeTds : public testing::Test {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(TdsServer::WhyMissing());
        server.emplace();
        connection.CommandTimeout = 1;
        connection.Open(server->ConnectionString());
        server->TakeArrived();
    }

    Recordset Writing(std::string_view source) {
        Recordset rows;
        rows.Open(source, connection, adOpenStatic, adLockOptimistic);
        return rows;
    }

    std::string Failing(std::string_view statement) {
        return DatabaseFailureOf([&] { connection.Execute(statement); });
    }

    std::optional<TdsServer> server;
    Connection connection;
};

TEST_F(OdbcOnFreeTds, ReportsAllRecordsOfARefusedSignIn) {
    Connection other;
    EXPECT_EQ(DatabaseFailureOf([&] { other.Open(server->ConnectionString() + ";PWD=wrong"); }),
              "[FreeTDS][SQL Server]Login failed for user 'miller'.\n"
              "[FreeTDS][SQL Server]Unable to connect to data source");
    EXPECT_EQ(other.State(), adStateClosed);
}

TEST_F(OdbcOnFreeTds, ReportsAllRecordsOfAServerThatDoesNotRun) {
    const DeafPort port(false);
    const std::string words = DatabaseFailureOf(
        [&] { Connection().Open("Driver=FreeTDS;Database=Account1;UID=miller" + port.Entry()); });
    EXPECT_TRUE(Holds(words, "Server is unavailable or does not exist")) << words;
    EXPECT_TRUE(Holds(words, "\n[FreeTDS][SQL Server]Unable to connect to data source")) << words;
}

TEST_F(OdbcOnFreeTds, TimesOutOnAServerThatDoesNotAnswerTheSignIn) {
    const DeafPort port(true);
    Connection other;
    other.ConnectionTimeout = 1;
    const std::string words = DatabaseFailureOf(
        [&] { other.Open("Driver=FreeTDS;Database=Account1;UID=miller" + port.Entry()); });
    EXPECT_TRUE(Holds(words, "Unable to connect to data source")) << words;
}

TEST_F(OdbcOnFreeTds, RemovesTheLimitOfLongTextsAndReportsItsDatabase) {
    Connection other;
    other.Open(server->ConnectionString());
    EXPECT_EQ(server->TakeArrived(), Texts({"SET TEXTSIZE 2147483647 SET NOCOUNT OFF"}));
    EXPECT_EQ(other.DefaultDatabase(), "Account1");
}

TEST_F(OdbcOnFreeTds, ReadsEachTypeAsItsKind) {
    Recordset rows = connection.Execute("Select kinds");
    ASSERT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Fields("Whole").Long(), 7);
    EXPECT_EQ(rows.Fields("Weight").Number(), 4100.5);
    EXPECT_EQ(rows.Fields("Exact").Text(), "-123456789012345678901.123456789");
    EXPECT_TRUE(std::holds_alternative<Value::Decimal>(rows.Fields("Small").Raw()));
    EXPECT_EQ(rows.Fields("Small").Text(), "30");
    EXPECT_EQ(rows.Fields("Driver").Text(), "Müller علی 😀");
    EXPECT_EQ(rows.Fields("Remark").Text().size(), 100'004U);
    EXPECT_TRUE(rows.Fields("Remark").Text().ends_with("éé😀"));
    EXPECT_EQ(rows.Fields("Day").AsDate(), ParseDate("2026-11-20"));
    EXPECT_EQ(rows.Fields("WeighedAt").Text(), "2026-11-20T13:45:01.003");
    rows.MoveNext();
    for (int field = 0; field < rows.FieldCount(); ++field)
        EXPECT_TRUE(rows.Fields(field).IsNull()) << rows.FieldName(field);
}

TEST_F(OdbcOnFreeTds, ReadsBlocksToTheLastRow) {
    const Recordset rows = connection.Execute("Select many");
    ASSERT_EQ(rows.RecordCount(), 1000);
    for (int row = 0; row < 1000; ++row) {
        ASSERT_EQ(rows.ValueAt(row, 0).Long(), row + 1);
        ASSERT_EQ(rows.ValueAt(row, 1).Text(), "Driver " + std::to_string(row + 1));
        ASSERT_EQ(rows.ValueAt(row, 2).Number(), (row + 1) * 0.25);
    }
}

TEST_F(OdbcOnFreeTds, SendsAStatementUnchangedInEveryScript) {
    const std::string statement = "Select 'Müller علی 😀 {d ''x''} ?' As \"A\" -- ?";
    connection.Execute(statement);
    EXPECT_EQ(server->TakeArrived(), Texts({statement}));
}

TEST_F(OdbcOnFreeTds, LeavesNoResultUnread) {
    Recordset rows = connection.Execute("Select two results");
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.FieldName(0), "A");
    EXPECT_TRUE(Holds(Failing("Select late failure"), "Divide by zero error encountered."));
    EXPECT_EQ(connection.Execute("Select 1").RecordCount(), 1);
}

TEST_F(OdbcOnFreeTds, WritesARowByItsKeyInOneStatement) {
    Recordset rows = Writing("Select * From Arrivals");
    rows.Collect("VehicleNo", "Müller علی 😀");
    rows.Collect("NetWeight", 0.1 + 0.2);
    rows.Collect("Day", ParseDate("2026-11-21"));
    rows.Update();
    rows.Collect("NetWeight", Value::Decimal{"-123.4500"});
    rows.Collect("VehicleNo", "");
    rows.Collect("Day", Value());
    rows.Update();
    EXPECT_EQ(server->TakeArrived(),
              Texts({"Select * From Arrivals", "sp_pkeys nvarchar:Arrivals",
                     "UPDATE Arrivals SET VehicleNo = @P1, NetWeight = @P2, [Day] = @P3 WHERE "
                     "ArrivalId = @P4 | nvarchar:Müller علی 😀 | float:0.30000000000000004 | "
                     "nvarchar:2026-11-21T00:00:00 | int:7",
                     "UPDATE Arrivals SET NetWeight = @P1, VehicleNo = @P2, [Day] = @P3 WHERE "
                     "ArrivalId = @P4 | decimal(7,4):-123.4500 | nvarchar: | nvarchar:None | "
                     "int:7"}));
}

TEST_F(OdbcOnFreeTds, SendsLongTextsCompletely) {
    for (const std::size_t length : {4000U, 4001U, 8001U, 100'000U}) {
        const std::string longText(length, 'x');
        Recordset rows = Writing("Select * From Arrivals");
        rows.Collect("VehicleNo", longText);
        rows.Update();
        EXPECT_TRUE(Holds(server->TakeArrived().back(), ":" + longText + " | int:7")) << length;
    }
}

TEST_F(OdbcOnFreeTds, MatchesATableWithoutAKeyOnEveryColumnAndOneRow) {
    Recordset rows = Writing("Select * From ArrivalsBody");
    rows.Delete();
    EXPECT_EQ(server->TakeArrived(),
              Texts({"Select * From ArrivalsBody", "sp_pkeys nvarchar:ArrivalsBody",
                     "SELECT 1 WHERE OBJECT_ID(N'ArrivalsBody', N'V') IS NOT NULL",
                     "SELECT * FROM ArrivalsBody WHERE 1 = 0",
                     "DELETE TOP (1) FROM ArrivalsBody WHERE ArrivalId = @P1 AND "
                     "CAST(CAST(VehicleNo AS nvarchar(max)) AS varbinary(max)) = "
                     "CAST(CAST(@P2 AS nvarchar(max)) AS varbinary(max)) AND NetWeight IS NULL AND "
                     "[Day] = @P3 | int:7 | nvarchar:LES-1  | nvarchar:2026-11-20T00:00:00"}));
}

TEST_F(OdbcOnFreeTds, ReportsAFailureAfterAnyNumberOfRows) {
    for (const int rows : {0, 1, 4, 255, 256, 257, 511, 512, 1000}) {
        const std::string count = std::to_string(rows);
        EXPECT_EQ(Failing("Select failure after rows " + count),
                  "[FreeTDS][SQL Server]Divide by zero error encountered.")
            << count;
        EXPECT_EQ(connection.Execute("Select warning after rows " + count).RecordCount(), rows);
    }
}

TEST_F(OdbcOnFreeTds, ReadsTheKeyOfEachTableOnce) {
    for (int i = 0; i < 2; ++i)
        for (const auto* table : {"Arrivals", "ArrivalsBody"}) {
            Recordset rows = Writing(std::string("Select * From ") + table);
            rows.Delete();
        }
    EXPECT_EQ(server->TakeArrived().size(), 12U) << "four reads, four deletes, four key queries";
}

// The schema of a station contains a view for each table of dbo, with the same name.

TEST_F(OdbcOnFreeTds, FindsARowOfAViewByTheKeyOfTheTableOfThatName) {
    Recordset rows = Writing("Select * From Viewed");
    rows.Delete();
    EXPECT_EQ(server->TakeArrived(), Texts({"Select * From Viewed", "sp_pkeys nvarchar:Viewed",
                                            "SELECT 1 WHERE OBJECT_ID(N'Viewed', N'V') IS NOT NULL",
                                            "sp_pkeys nvarchar:dbo | nvarchar:Viewed",
                                            "DELETE FROM Viewed WHERE ArrivalId = @P1 | int:7"}));
}

TEST_F(OdbcOnFreeTds, ReadsTheForeignKeysOfTheTableForAView) {
    struct Case {
        const char* table;
        int rows;
        bool isAskedAgain;
    };
    constexpr Case cases[] = {{"Arrivals", 1, false}, {"Viewed", 1, true}, {"Lonely", 0, true}};
    for (const Case& each : cases) {
        const std::string name = "N'" + std::string(each.table) + "'";
        const std::string statement = "EXEC sp_fkeys @pktable_name = " + name;
        EXPECT_EQ(connection.Execute(statement).RecordCount(), each.rows) << each.table;
        Texts wanted{statement};
        if (each.isAskedAgain)
            wanted.push_back("IF OBJECT_ID(" + name + ", N'V') IS NOT NULL " + statement +
                             ", @pktable_owner = N'dbo'");
        EXPECT_EQ(server->TakeArrived(), wanted);
    }
}

TEST_F(OdbcOnFreeTds, DoesNotAskAgainIfTheOwnerIsNamed) {
    const std::string statement = "EXEC sp_fkeys @pktable_name = N'Viewed', @pktable_owner = N'x'";
    EXPECT_EQ(connection.Execute(statement).RecordCount(), 0);
    EXPECT_EQ(server->TakeArrived(), Texts{statement});
}

TEST_F(OdbcOnFreeTds, ReturnsTheRowCountOfTheStatementNotOfItsTrigger) {
    Recordset rows = Writing("Select * From Triggered");
    rows.Collect("VehicleNo", "x");
    rows.Update();
    EXPECT_EQ(rows.Fields("VehicleNo").Text(), "x");
}

TEST_F(OdbcOnFreeTds, BeginsAndEndsATransactionInOneStatementEach) {
    connection.BeginTrans();
    connection.CommitTrans();
    connection.BeginTrans();
    connection.RollbackTrans();
    EXPECT_EQ(server->TakeArrived(),
              Texts({"BEGIN TRANSACTION", "COMMIT TRANSACTION", "BEGIN TRANSACTION",
                     "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION"}));
}

TEST_F(OdbcOnFreeTds, ContinuesATransactionThatAFailureLeftOpen) {
    connection.BeginTrans();
    EXPECT_EQ(Failing("Insert a duplicate"),
              "[FreeTDS][SQL Server]Violation of PRIMARY KEY constraint.\n"
              "[FreeTDS][SQL Server]The statement has been terminated.");
    connection.Execute("Select 1");
    connection.CommitTrans();
    EXPECT_EQ(server->TakeArrived(),
              Texts({"BEGIN TRANSACTION", "Insert a duplicate", "SELECT @@TRANCOUNT", "Select 1",
                     "COMMIT TRANSACTION"}));
}

TEST_F(OdbcOnFreeTds, RefusesStatementsAfterTheServerEndedTheTransaction) {
    connection.BeginTrans();
    EXPECT_TRUE(Holds(Failing("Update into a deadlock"), "chosen as the deadlock victim"));
    Failing("Select 1");
    DatabaseFailureOf([&] { connection.CommitTrans(); });
    connection.RollbackTrans();
    connection.Execute("Select 2");
    EXPECT_EQ(server->TakeArrived(),
              Texts({"BEGIN TRANSACTION", "Update into a deadlock", "SELECT @@TRANCOUNT",
                     "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION", "Select 2"}));
}

TEST_F(OdbcOnFreeTds, ClosesTheConnectionIfTheRollbackFails) {
    connection.BeginTrans();
    connection.Execute("Set refuse the rollback");
    connection.RollbackTrans();
    EXPECT_TRUE(Failing("Select 1").ends_with(lost));
    connection.Close();
    connection.Open(server->ConnectionString());
    EXPECT_EQ(connection.Execute("Select 1").RecordCount(), 1);
}

TEST_F(OdbcOnFreeTds, CancelsAStatementAfterTheCommandTimeout) {
    EXPECT_TRUE(Holds(Failing("Update and take your time"), "Timeout expired"));
    EXPECT_EQ(connection.Execute("Select 1").RecordCount(), 1);
}

TEST_F(OdbcOnFreeTds, TimesOutOnAServerThatStopsResponding) {
    connection.BeginTrans();
    const std::string words = Failing("Update and fall silent");
    EXPECT_TRUE(Holds(words, "Timeout expired")) << words;
    EXPECT_TRUE(words.ends_with(lost)) << words;
    connection.RollbackTrans();
    EXPECT_TRUE(Failing("Select 1").ends_with(lost));
}

TEST_F(OdbcOnFreeTds, ReportsALostConnectionWithTheDriversText) {
    EXPECT_EQ(Failing("hang up"),
              std::string("[FreeTDS][SQL Server]Unexpected EOF from the server") + lost);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Failing("Select 1"),
                  std::string("[FreeTDS][SQL Server]Communication link failure") + lost);
    connection.Close();
    connection.Open(server->ConnectionString());
    EXPECT_EQ(connection.Execute("Select 1").RecordCount(), 1);
}

TEST_F(OdbcOnFreeTds, CountsTheTransactionOfALostConnectionAsRolledBack) {
    connection.BeginTrans();
    EXPECT_TRUE(Failing("hang up").ends_with(lost));
    Failing("Select 1");
    connection.RollbackTrans();
    EXPECT_EQ(Failing("Select 1"),
              std::string("[FreeTDS][SQL Server]Communication link failure") + lost);
}

/// FreeTDS is registered as on a station's computer.
bool ServesAsSqlServer() {
    TdsServer server;
    std::ofstream(server.Folder() / "odbcinst.ini") << "[SQL Server]\nDriver=libtdsodbc.so\n";
    setenv("ODBCSYSINI", server.Folder().c_str(), 1);
    std::string text = server.ConnectionString();
    text.replace(text.find("FreeTDS"), std::string_view("FreeTDS").size(), "SQL Server");
    Connection station;
    station.Open(text);
    station.Execute("Select 'علی'");
    return station.DefaultDatabase() == "Account1" &&
           server.TakeArrived() ==
               Texts({"SET TEXTSIZE 2147483647 SET NOCOUNT OFF", "Select 'علی'"});
}

// In a new process: the driver manager reads the registrations only once, so no call may have read
// them before.
TEST(OdbcOnFreeTdsRegistered, IsFoundUnderTheNameInTheConnectionString) {
    SKIP_IF_MISSING(TdsServer::WhyMissing());
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(ServesAsSqlServer() ? 7 : 1), testing::ExitedWithCode(7), "");
}

} // namespace

} // namespace Quillane
