// A server is killed at random moments while a connection saves, and started again.

#include "platform/ado/Connection.h"
#include "servers/PostgresServer.h"
#include "support/FailureOf.h"
#include "support/SkipIfMissing.h"

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

    /// True if the load with this number is stored; otherwise `Message` has the reason.
    bool Save(int load) {
        isAtCommit_ = false;
        try {
            connection_.BeginTrans();
            Write(load);
            isAtCommit_ = true;
            connection_.CommitTrans();
            return true;
        } catch (const Failure& failure) {
            message_ = failure.Description();
            return false;
        }
    }
    const std::string& Message() const { return message_; }
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
    std::string message_;
    bool isAtCommit_ = false;
};

class KilledPostgres : public testing::Test {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(PostgresServer::WhyMissing());
        server = std::make_unique<PostgresServer>();
        Ask("Create Table Loads (LoadId int Primary Key)");
        Ask("Create Table Lines (LoadId int References Loads, Note varchar(20))");
    }

    std::string Ask(const std::string& statement) {
        Connection other;
        other.Open(server->ConnectionString("postgres"));
        const Recordset rows = other.Execute(statement);
        return rows.State() == adStateOpen ? rows.Fields(0).Text() : std::string();
    }

    /// Saves until the server is killed at a random moment.
    void SaveUntilKilled(Saver& saver) {
        const auto begin = Clock::now();
        ASSERT_TRUE(saver.Save(++last)) << "the first save of a new start: " << saver.Message();
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

TEST_F(KilledPostgres, AtRandomMomentsLeavesNoPartialLoad) {
    for (int round = 0; round < Rounds; ++round) {
        Saver saver(server->ConnectionString("postgres"));
        SaveUntilKilled(saver);
        EXPECT_NE(saver.Message().find("The connection to the database server is lost."),
                  std::string::npos)
            << saver.Message();
        EXPECT_EQ(saver.Message().find("may or may not have completed") != std::string::npos,
                  saver.IsAtCommit())
            << saver.Message();
        server->StartAgain();
        // Only a commit whose answer was lost may be stored without a report.
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
