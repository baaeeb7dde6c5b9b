#include "platform/ado/odbc/OdbcOnPostgres.h"
#include "servers/DeafPort.h"

#include <thread>

namespace Quillane {

namespace {

bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

constexpr auto lost =
    "\nThe connection to the database server is lost. Restart the program to reconnect.";

std::string FailureToOpen(const std::string& text) {
    Connection connection;
    connection.ConnectionTimeout = 2;
    const std::string words = DatabaseFailureOf([&] { connection.Open(text); });
    EXPECT_EQ(connection.State(), adStateClosed);
    return words;
}

TEST_F(OdbcOnPostgres, ReportsAWrongPassword) {
    std::string text = database->ConnectionString();
    text.replace(text.find("PWD=wheat"), std::string_view("PWD=wheat").size(), "PWD=chaff");
    const std::string words = FailureToOpen(text);
    EXPECT_TRUE(Holds(words, "password authentication failed for user \"quillane\"")) << words;
}

TEST_F(OdbcOnPostgres, ConnectsWithTheUserOfOpen) {
    Run("Create Role miller Login Password 'a;b}c'");
    std::string text = database->ConnectionString();
    text.erase(text.find("UID="), std::string_view("UID=quillane;PWD=wheat;").size());
    Connection other;
    other.Open(text, "miller", "a;b}c");
    EXPECT_EQ(other.Execute("Select current_user::varchar(20)").Fields(0).Text(), "miller");
    other.Close();
    Run("Drop Role miller");
}

TEST_F(OdbcOnPostgres, ReportsAnUnknownDatabase) {
    const std::string words =
        FailureToOpen(PostgresServer::Shared().ConnectionString("no_such_mill"));
    EXPECT_TRUE(Holds(words, "database \"no_such_mill\" does not exist")) << words;
}

TEST_F(OdbcOnPostgres, ReportsAServerThatDoesNotRun) {
    const DeafPort port(false);
    const std::string words =
        FailureToOpen("Driver=PostgreSQL Unicode;Database=mill" + port.Entry());
    EXPECT_TRUE(Holds(words, "Connection refused")) << words;
}

TEST_F(OdbcOnPostgres, TimesOutOnAServerThatDoesNotAnswer) {
    const DeafPort port(true);
    const std::string words =
        FailureToOpen("Driver=PostgreSQL Unicode;Database=mill" + port.Entry());
    EXPECT_TRUE(Holds(words, "timeout expired")) << words;
}

TEST_F(OdbcOnPostgres, ReportsItsDatabase) {
    EXPECT_EQ(connection.DefaultDatabase(), database->Name());
}

TEST_F(OdbcOnPostgres, CancelsAStatementAfterTheCommandTimeout) {
    Connection impatient;
    impatient.CommandTimeout = 1;
    impatient.Open(database->ConnectionString());
    EXPECT_EQ(impatient.Execute("Select 1").Fields(0).Text(), "1");
    const std::string words = DatabaseFailureOf([&] { impatient.Execute("Select pg_sleep(100)"); });
    EXPECT_TRUE(Holds(words, "statement timeout")) << words;
    EXPECT_EQ(impatient.Execute("Select 1").Fields(0).Text(), "1");
}

TEST_F(OdbcOnPostgres, LeavesNoResultUnread) {
    EXPECT_EQ(OneText("Select 1; Select 2; Select 'three'"), "1");
    EXPECT_EQ(OneText("Select 4"), "4");
    Run("Create Table Marks (Mark int)");
    EXPECT_EQ(OneText("Insert Into Marks Values (1); Select 5; Insert Into Marks Values (2)"), "5");
    EXPECT_EQ(OneText("Select Count(*) From Marks"), "2");
    for (int i = 0; i < 20; ++i)
        Recordset dropped = connection.Execute("Select * From generate_series(1, 5000)");
    EXPECT_EQ(OneText("Select 6"), "6");
}

TEST_F(OdbcOnPostgres, FailsWithALaterStatementOfATextAndStaysUsable) {
    const std::string words = DatabaseFailureOf([&] { Run("Select 1; Select 1/0"); });
    EXPECT_TRUE(Holds(words, "division by zero")) << words;
    DatabaseFailureOf([&] { Run("Select 1000 / (500 - n) From generate_series(1, 1000) n"); });
    EXPECT_EQ(OneText("Select 2"), "2");
}

TEST_F(OdbcOnPostgres, KeepsNoParametersForTheNextStatement) {
    Run("Create Table Loads (LoadId int Primary Key, Remark text, Driver varchar(60))");
    Recordset loads = Writing("Select * From Loads");
    const auto add = [&](int id, const std::string& remark, const Value& driver) {
        loads.AddNew();
        loads.Collect("LoadId", id);
        loads.Collect("Remark", remark);
        loads.Collect("Driver", driver);
        loads.Update();
    };
    for (int i = 1; i <= 3; ++i) {
        add(i, std::string(20'000, 'x'), "Ali");
        EXPECT_EQ(OneText("Select Remark From Loads Where LoadId = " + std::to_string(i)).size(),
                  20'000U);
        EXPECT_EQ(connection.Execute("Select n, n * 2, n * 3 From generate_series(1, 600) n")
                      .RecordCount(),
                  600);
        DatabaseFailureOf([&] { add(i, "twice", "Bano"); });
        loads = Writing("Select * From Loads Where LoadId = " + std::to_string(i));
        loads.Collect("Driver", Value());
        loads.Update();
        EXPECT_EQ(OneText("Select Count(*) From Loads Where Driver Is Null"), std::to_string(i));
    }
}

TEST_F(OdbcOnPostgres, ReportsAFailureInAnyRow) {
    for (const auto* more : {"", ";UseDeclareFetch=1;Fetch=100", ";UseDeclareFetch=1;Fetch=256"}) {
        Connection other;
        other.Open(database->ConnectionString(more));
        for (const int row : {1, 100, 101, 255, 256, 257, 512, 513, 1000}) {
            const std::string words = DatabaseFailureOf([&] {
                other.Execute("Select 1 / (n - " + std::to_string(row) +
                              ") From generate_series(1, 1000) n");
            });
            EXPECT_TRUE(Holds(words, "division by zero")) << more << ' ' << row << words;
        }
    }
}

class OdbcTransactionsOnPostgres : public OdbcOnPostgres {
protected:
    void SetUp() override {
        OdbcOnPostgres::SetUp();
        if (!IsSkipped())
            Run("Create Table Loads (LoadId int Primary Key, Note varchar(20))");
    }

    static void ExpectEverythingRefused(Connection& connection) {
        Recordset rows;
        const std::vector<std::function<void()>> attempts = {
            [&] { connection.Execute("Insert Into Loads Values (8, 'piece')"); },
            [&] { connection.Execute("Select 1"); },
            [&] { rows.Open("Select * From Loads", connection); },
            [&] { connection.BeginTrans(); },
            [&] { connection.CommitTrans(); },
        };
        for (const auto& attempt : attempts)
            DatabaseFailureOf(attempt);
    }

    std::string Count() { return OneText("Select Count(*) From Loads"); }
};

TEST_F(OdbcTransactionsOnPostgres, OnceEndedByTheServerRefuseEverythingUntilRolledBack) {
    for (const auto* more : {";Protocol=7.4-0", ";Protocol=7.4-1", ";Protocol=7.4-2"}) {
        Connection other;
        other.Open(database->ConnectionString(more));
        other.BeginTrans();
        other.Execute("Insert Into Loads Values (1, 'kept nowhere')");
        EXPECT_TRUE(Holds(DatabaseFailureOf([&] { other.Execute("Insert Into Loads Values (1)"); }),
                          "duplicate key"));
        ExpectEverythingRefused(other);
        other.RollbackTrans();
        EXPECT_EQ(other.Execute("Select Count(*) From Loads").Fields(0).Text(), "0") << more;
        DatabaseFailureOf([&] { other.RollbackTrans(); });
        other.BeginTrans();
        other.Execute("Insert Into Loads Values (1, 'kept')");
        other.CommitTrans();
        EXPECT_EQ(Count(), "1") << more;
        Run("Delete From Loads");
    }
}

TEST_F(OdbcTransactionsOnPostgres, HideUncommittedRowsFromOthers) {
    Connection other;
    other.Open(database->ConnectionString());
    other.BeginTrans();
    other.Execute("Insert Into Loads Values (1, 'pending')");
    EXPECT_EQ(Count(), "0");
    other.CommitTrans();
    EXPECT_EQ(Count(), "1");
    other.Execute("Insert Into Loads Values (2, 'at once')");
    EXPECT_EQ(Count(), "2");
}

TEST_F(OdbcTransactionsOnPostgres, ThatFailToCommitAreRolledBack) {
    Run("Create Table Lines (LoadId int References Loads Deferrable Initially Deferred)");
    connection.BeginTrans();
    Run("Insert Into Lines Values (99)");
    EXPECT_TRUE(Holds(DatabaseFailureOf([&] { connection.CommitTrans(); }), "foreign key"));
    connection.RollbackTrans();
    EXPECT_EQ(OneText("Select Count(*) From Lines"), "0");
}

TEST_F(OdbcTransactionsOnPostgres, OneOfTwoInADeadlockIsEndedByTheServer) {
    Run("Insert Into Loads Values (1, ''), (2, '')");
    Connection other;
    other.Open(database->ConnectionString());
    connection.BeginTrans();
    other.BeginTrans();
    Run("Update Loads Set Note = 'first' Where LoadId = 1");
    other.Execute("Update Loads Set Note = 'second' Where LoadId = 2");
    int failed = 0;
    const auto end = [](Connection& station, const char* statement, int& failures) {
        try {
            station.Execute(statement);
            station.CommitTrans();
        } catch (const Failure& failure) {
            ++failures;
            EXPECT_TRUE(Holds(failure.Description(), "deadlock detected")) << failure.Description();
            ExpectEverythingRefused(station);
            station.RollbackTrans();
        }
    };
    int otherFailed = 0;
    std::thread station(
        [&] { end(other, "Update Loads Set Note = 'second' Where LoadId = 1", otherFailed); });
    end(connection, "Update Loads Set Note = 'first' Where LoadId = 2", failed);
    station.join();
    EXPECT_EQ(failed + otherFailed, 1);
    EXPECT_EQ(OneText("Select Count(Distinct Note) From Loads"), "1");
    EXPECT_EQ(OneText("Select Min(Note) From Loads"), failed == 1 ? "second" : "first");
}

TEST_F(OdbcTransactionsOnPostgres, OfALostConnectionCountAsRolledBack) {
    connection.BeginTrans();
    Run("Insert Into Loads Values (1, 'half a save')");
    const std::string words =
        DatabaseFailureOf([&] { Run("Select pg_terminate_backend(pg_backend_pid())"); });
    EXPECT_TRUE(Holds(words, "terminating connection due to administrator command")) << words;
    EXPECT_TRUE(words.ends_with(lost)) << words;
    ExpectEverythingRefused(connection);
    connection.RollbackTrans();
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(DatabaseFailureOf([&] { Run("Select 1"); }).ends_with(lost));
    EXPECT_TRUE(DatabaseFailureOf([&] { connection.BeginTrans(); }).ends_with(lost));
    connection.Close();
    connection.Open(database->ConnectionString());
    EXPECT_EQ(Count(), "0");
}

/// A server that belongs to the test and can be killed.
class OdbcOnKilledPostgres : public testing::Test {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(PostgresServer::WhyMissing());
        server.emplace();
        connection.Open(server->ConnectionString("postgres"));
        connection.Execute("Create Table Loads (LoadId int Primary Key)");
    }

    std::optional<PostgresServer> server;
    Connection connection;
};

TEST_F(OdbcOnKilledPostgres, TheNextStatementFailsWithTheDriversText) {
    Recordset rows;
    rows.Open("Select * From Loads", connection, adOpenStatic, adLockOptimistic);
    server->Kill();
    const std::string words = DatabaseFailureOf([&] { connection.Execute("Select 1"); });
    EXPECT_GT(words.size(), std::string_view(lost).size());
    EXPECT_TRUE(words.ends_with(lost)) << words;
    rows.AddNew();
    rows.Collect("LoadId", 1);
    EXPECT_TRUE(DatabaseFailureOf([&] { rows.Update(); }).ends_with(lost));
    EXPECT_EQ(connection.State(), adStateOpen);
    connection.Close();
}

TEST_F(OdbcOnKilledPostgres, ASaveFailsAndIsRolledBack) {
    connection.BeginTrans();
    connection.Execute("Insert Into Loads Values (1)");
    server->Kill();
    const std::string words = DatabaseFailureOf([&] { connection.CommitTrans(); });
    EXPECT_TRUE(Holds(words, std::string(lost) + "\nThe save or removal may or may not")) << words;
    connection.RollbackTrans();
    EXPECT_TRUE(DatabaseFailureOf([&] { connection.Execute("Select 1"); }).ends_with(lost));
}

} // namespace

} // namespace Quillane
