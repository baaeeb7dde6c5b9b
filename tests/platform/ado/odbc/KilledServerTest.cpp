// A server is killed at random moments while a connection saves, and started again.

#include "platform/ado/Connection.h"
#include "servers/PostgresServer.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <thread>

namespace Quillane {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int Rounds = 10;
constexpr int LinesOfALoad = 3;

/// A station's connection that saves one load after the other, each in a transaction, until it
/// fails.
class Saver {
public:
    explicit Saver(const std::string& connectionString) { connection_.Open(connectionString); }

    /// Whether the load of this number is stored; where not, why stands in `Words`.
    bool Save(int load) {
        isAtCommit_ = false;
        try {
            connection_.BeginTrans();
            Write(load);
            isAtCommit_ = true;
            connection_.CommitTrans();
            return true;
        } catch (const Failure& failure) {
            words_ = failure.Description();
            return false;
        }
    }
    const std::string& Words() const { return words_; }
    bool IsAtCommit() const { return isAtCommit_; }

private:
    void Write(int load) {
        Recordset header, lines;
        header.Open("Select * From Loads Where LoadId = " + std::to_string(load), connection_,
                    adOpenDynamic, adLockOptimistic);
        header.AddNew();
        header.Collect("LoadId", load);
        header.Update();
        lines.Open("Select * From Lines Where LoadId = " + std::to_string(load), connection_,
                   adOpenStatic, adLockOptimistic);
        for (int line = 0; line < LinesOfALoad; ++line) {
            lines.AddNew();
            lines.Collect("LoadId", load);
            lines.Collect("Note", "line " + std::to_string(line));
            lines.Update();
        }
    }

    Connection connection_;
    std::string words_;
    bool isAtCommit_ = false;
};

class KilledPostgres : public testing::Test {
protected:
    void SetUp() override {
        const std::string whyMissing = PostgresServer::WhyMissing();
        if (!whyMissing.empty())
            GTEST_SKIP() << "PostgreSQL is not there: " << whyMissing;
        server = std::make_unique<PostgresServer>();
        Ask("Create Table Loads (LoadId int Primary Key)");
        Ask("Create Table Lines (LoadId int References Loads, Note varchar(20))");
    }

    std::string Ask(const std::string& statement) {
        Connection beside;
        beside.Open(server->ConnectionString("postgres"));
        const Recordset rows = beside.Execute(statement);
        return rows.State() == adStateOpen ? rows.Fields(0).Text() : std::string();
    }

    /// Saves until the server has been killed under it, at a moment that is drawn.
    void SaveUntilKilled(Saver& saver) {
        const auto begin = Clock::now();
        ASSERT_TRUE(saver.Save(++last)) << "the first save of a new start: " << saver.Words();
        ++stored;
        const auto aSave =
            std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin);
        std::thread killer([&] {
            std::this_thread::sleep_for(aSave * std::uniform_int_distribution(0, 300)(chance) /
                                        100);
            server->Kill();
        });
        while (saver.Save(++last))
            ++stored;
        killer.join();
    }

    std::unique_ptr<PostgresServer> server;
    std::mt19937 chance{20'261'121};
    int last = 0;
    int stored = 0;
};

TEST_F(KilledPostgres, AtRandomMomentsLeavesEveryLoadWholeOrNotAtAll) {
    for (int round = 0; round < Rounds; ++round) {
        Saver saver(server->ConnectionString("postgres"));
        SaveUntilKilled(saver);
        EXPECT_NE(saver.Words().find("The connection to the database server is lost."),
                  std::string::npos)
            << saver.Words();
        EXPECT_EQ(saver.Words().find("It is not known whether") != std::string::npos,
                  saver.IsAtCommit())
            << saver.Words();
        server->StartAgain();
        // Only a commit whose answer was lost may have been stored without being told.
        if (saver.IsAtCommit() &&
            Ask("Select Count(*) From Loads Where LoadId = " + std::to_string(last)) == "1")
            ++stored;
        EXPECT_EQ(Ask("Select Count(*) From Loads"), std::to_string(stored));
        EXPECT_EQ(Ask("Select Count(*) From (Select L.LoadId From Loads L Left Join Lines N On "
                      "N.LoadId = L.LoadId Group By L.LoadId Having Count(N.Note) <> 3) Halves"),
                  "0");
    }
}

} // namespace

} // namespace Quillane
