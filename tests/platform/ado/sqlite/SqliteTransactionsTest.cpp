#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <condition_variable>
#include <thread>

namespace Quillane {

namespace {

class SqliteTransactions : public testing::Test {
protected:
    void SetUp() override {
        folder.RunScript("CREATE TABLE Arrivals (ArrivalID INTEGER PRIMARY KEY, Note TEXT);"
                         "INSERT INTO Arrivals VALUES (1, 'first');");
        folder.Open(first);
        OpenWithWait(second, std::chrono::milliseconds(20));
    }

    void OpenWithWait(Connection& connection, std::chrono::milliseconds wait) {
        EmbeddedSupport support = folder.Support();
        support.busyWait = wait;
        connection.SetEmbeddedSupport(support);
        connection.Open(EmbeddedFolder::connectionString);
    }

    static std::string OneValue(Connection& connection, std::string_view statement) {
        return connection.Execute(statement).Fields(0).Text();
    }
    static std::string Count(Connection& connection) {
        return OneValue(connection, "Select Count(*) From Arrivals");
    }

    EmbeddedFolder folder;
    Connection first;
    Connection second; ///< waits for only 20 ms
};

TEST_F(SqliteTransactions, TakeTheWriteLockWithTheirFirstStatement) {
    first.BeginTrans();
    second.Execute("Insert Into Arrivals Values (2, 'before')");
    EXPECT_EQ(Count(first), "2");
    EXPECT_EQ(DatabaseFailureOf([&] { second.Execute("Insert Into Arrivals Values (3, 'x')"); }),
              "database is locked");
    first.CommitTrans();
    second.Execute("Insert Into Arrivals Values (3, 'after')");
    EXPECT_EQ(Count(first), "3");
}

TEST_F(SqliteTransactions, DoNotBlockReaders) {
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'pending')");
    EXPECT_EQ(Count(second), "1");
    first.CommitTrans();
    EXPECT_EQ(Count(second), "2");
}

TEST_F(SqliteTransactions, WaitForTheLockOfAnother) {
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'first')");
    // The first station commits after the second one has started.
    std::mutex mutex;
    std::condition_variable underWay;
    bool setOff = false;
    std::thread station([&] {
        Connection waiting;
        OpenWithWait(waiting, std::chrono::milliseconds(30'000));
        waiting.StatementObserver = [&](std::string_view text) {
            if (text == "BeginTrans")
                return;
            const std::lock_guard lock(mutex);
            setOff = true;
            underWay.notify_one();
        };
        waiting.BeginTrans();
        EXPECT_EQ(Count(waiting), "2");
        waiting.Execute("Insert Into Arrivals Values (3, 'second')");
        waiting.CommitTrans();
    });
    {
        std::unique_lock lock(mutex);
        underWay.wait(lock, [&] { return setOff; });
    }
    first.CommitTrans();
    station.join();
    EXPECT_EQ(Count(first), "3");
}

TEST_F(SqliteTransactions, ARefusedBeginningCanBeTriedAgain) {
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'first')");
    second.BeginTrans();
    DatabaseFailureOf([&] { Count(second); });
    first.CommitTrans();
    EXPECT_EQ(Count(second), "2");
    second.Execute("Insert Into Arrivals Values (3, 'second')");
    second.RollbackTrans();
    EXPECT_EQ(Count(second), "2");
}

TEST_F(SqliteTransactions, ARefusedBeginningCanBeRolledBack) {
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'first')");
    second.BeginTrans();
    DatabaseFailureOf([&] { Count(second); });
    second.RollbackTrans();
    first.CommitTrans();
    EXPECT_EQ(Count(second), "2");
}

void ExpectEverythingRefused(Connection& connection) {
    Recordset rows;
    const std::vector<std::function<void()>> attempts = {
        [&] { connection.Execute("Insert Into Arrivals Values (8, 'piece')"); },
        [&] { connection.Execute("Select 1"); },
        [&] { rows.Open("Select * From Arrivals", connection); },
        [&] { connection.BeginTrans(); },
        [&] { connection.CommitTrans(); },
    };
    for (const auto& attempt : attempts)
        DatabaseFailureOf(attempt);
}

TEST_F(SqliteTransactions, EndedByTheEngineRefuseStatementsUntilTheRollback) {
    folder.RunScript("CREATE TRIGGER Stop BEFORE INSERT ON Arrivals WHEN NEW.Note = 'stop' "
                     "BEGIN SELECT RAISE(ROLLBACK, 'stopped by the database'); END");
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'kept nowhere')");
    EXPECT_EQ(DatabaseFailureOf([&] { first.Execute("Insert Into Arrivals Values (3, 'stop')"); }),
              "stopped by the database");
    ExpectEverythingRefused(first);
    first.RollbackTrans();
    EXPECT_EQ(Count(first), "1");
    DatabaseFailureOf([&] { first.RollbackTrans(); });
}

TEST_F(SqliteTransactions, AFullDiskRollsThemBack) {
    Recordset rows;
    first.BeginTrans();
    rows.Open("Select * From Arrivals", first, adOpenStatic, adLockOptimistic);
    rows.Collect("Note", "changed");
    rows.Update();
    first.Execute("PRAGMA max_page_count=1");
    rows.AddNew();
    rows.Collect("ArrivalID", 2);
    rows.Collect("Note", std::string(100'000, 'x'));
    EXPECT_EQ(DatabaseFailureOf([&] { rows.Update(); }), "database or disk is full");
    ExpectEverythingRefused(first);
    DatabaseFailureOf([&] { rows.Update(); });
    first.RollbackTrans();
    EXPECT_EQ(OneValue(first, "Select Note From Arrivals"), "first");
}

TEST_F(SqliteTransactions, ATransactionEndedByAStatementTextCountsAsEndedByTheEngine) {
    first.BeginTrans();
    first.Execute("Insert Into Arrivals Values (2, 'gone')");
    first.Execute("ROLLBACK");
    ExpectEverythingRefused(first);
    first.RollbackTrans();
    EXPECT_EQ(Count(first), "1");
}

TEST_F(SqliteTransactions, ACommitThatFailsLeavesTheRollbackToItsCaller) {
    folder.RunScript("CREATE TABLE Lines (Id INT REFERENCES Arrivals DEFERRABLE INITIALLY "
                     "DEFERRED)");
    first.BeginTrans();
    first.Execute("Insert Into Lines Values (99)");
    DatabaseFailureOf([&] { first.CommitTrans(); });
    first.RollbackTrans();
    EXPECT_EQ(OneValue(first, "Select Count(*) From Lines"), "0");
}

} // namespace

} // namespace Quillane
