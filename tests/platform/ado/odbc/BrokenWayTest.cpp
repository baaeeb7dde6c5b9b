// The way between a station and its server breaks, at every moment of a transaction.

#include "platform/ado/odbc/OdbcOnPostgres.h"
#include "servers/ServerRelay.h"
#include "servers/TdsServer.h"

#include <chrono>

namespace Quillane {

namespace {

using Moment = ServerRelay::Moment;
using Kind = ServerRelay::Kind;

const std::string lost = "\nThe connection to the database server is lost. Start the program again "
                         "to connect anew.";
const std::string unknown = "\nIt is not known whether this was still saved or removed: "
                            "look it up before you do it again.";

/// A server with data, and a station that reaches it through a relay.
class BrokenWayToPostgres : public OdbcOnPostgres {
protected:
    void SetUp() override {
        OdbcOnPostgres::SetUp();
        if (IsSkipped())
            return;
        Run("Create Table Loads (LoadId int Primary Key)");
        relay.emplace(database->ConnectionString());
        station.Open(relay->ConnectionString());
    }

    void BeginSave() {
        station.BeginTrans();
        station.Execute("Insert Into Loads Values (1)");
    }
    /// What the station is told, when the way breaks at that moment of the commit.
    std::string CommitOver(Moment moment) {
        BeginSave();
        relay->Break(moment);
        const std::string words = DatabaseFailureOf([&] { station.CommitTrans(); });
        station.RollbackTrans();
        return words;
    }
    void ExpectANewStartWorks() {
        relay->Mend();
        station.Close();
        station.Open(relay->ConnectionString());
        station.BeginTrans();
        station.Execute("Insert Into Loads Values (2)");
        station.CommitTrans();
        EXPECT_EQ(OneText("Select Count(*) From Loads Where LoadId = 2"), "1");
    }
    std::string Stored() { return OneText("Select Count(*) From Loads Where LoadId = 1"); }

    std::optional<ServerRelay> relay;
    Connection station;
};

TEST_F(BrokenWayToPostgres, IsToldAtTheNextStatementAndAtEveryOneBehindIt) {
    for (const Moment moment : {Moment::Now, Moment::AtNextRequest, Moment::AtNextAnswer}) {
        relay->Break(moment);
        const std::string words = DatabaseFailureOf([&] { station.Execute("Select 1"); });
        EXPECT_GT(words.size(), lost.size());
        EXPECT_TRUE(words.ends_with(lost)) << words;
        EXPECT_TRUE(DatabaseFailureOf([&] { station.Execute("Select 1"); }).ends_with(lost));
        relay->Mend();
        station.Close();
        station.Open(relay->ConnectionString());
    }
}

TEST_F(BrokenWayToPostgres, IsToldByTheRollbackOfASaveThatCouldNotBegin) {
    relay->Break(Moment::Now);
    const std::string words = DatabaseFailureOf([&] { station.BeginTrans(); });
    EXPECT_TRUE(words.ends_with(lost)) << words;
    EXPECT_EQ(DatabaseFailureOf([&] { station.RollbackTrans(); }),
              words + "\nNo transaction is open, so none can be rolled back.");
}

TEST_F(BrokenWayToPostgres, LeavesNothingOfATransactionThatItBreaksInto) {
    for (const Moment moment : {Moment::Now, Moment::AtNextRequest, Moment::AtNextAnswer}) {
        BeginSave();
        relay->Break(moment);
        const std::string words =
            DatabaseFailureOf([&] { station.Execute("Insert Into Loads Values (3)"); });
        EXPECT_TRUE(words.ends_with(lost)) << words;
        DatabaseFailureOf([&] { station.CommitTrans(); });
        station.RollbackTrans();
        EXPECT_EQ(OneText("Select Count(*) From Loads"), "0");
        relay->Mend();
        station.Close();
        station.Open(relay->ConnectionString());
    }
    ExpectANewStartWorks();
}

TEST_F(BrokenWayToPostgres, BeforeTheCommitArrivesLeavesNothingAndSaysThatThisIsNotKnown) {
    const std::string words = CommitOver(Moment::AtNextRequest);
    EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
    EXPECT_EQ(Stored(), "0");
    ExpectANewStartWorks();
}

TEST_F(BrokenWayToPostgres, BeforeTheAnswerToACommitLeavesAllAndSaysThatThisIsNotKnown) {
    const std::string words = CommitOver(Moment::AtNextAnswer);
    EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
    EXPECT_EQ(Stored(), "1");
    ExpectANewStartWorks();
}

/// The driver that a station uses for SQL Server, on a way that falls silent.
class SilentWayOnFreeTds : public testing::Test {
protected:
    static constexpr int Patience = 1;

    void SetUp() override {
        const std::string whyMissing = TdsServer::WhyMissing();
        if (!whyMissing.empty())
            GTEST_SKIP() << "FreeTDS is not there: " << whyMissing;
        server.emplace();
        relay.emplace(server->ConnectionString());
        station.CommandTimeout = Patience;
        station.Open(relay->ConnectionString());
        server->TakeArrived();
    }

    /// What the failure of an action on the silent way says; it has to come in time.
    template <typename Action>
    std::string WordsInTime(Action action) {
        const auto begin = std::chrono::steady_clock::now();
        const std::string words = DatabaseFailureOf(action);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(Patience * 15));
        EXPECT_TRUE(words.find("Timeout expired") != std::string::npos) << words;
        return words;
    }

    std::optional<TdsServer> server;
    std::optional<ServerRelay> relay;
    Connection station;
};

TEST_F(SilentWayOnFreeTds, EndsAStatementInTime) {
    relay->Break(Moment::Now, Kind::Silence);
    const std::string words = WordsInTime([&] { station.Execute("Select 1"); });
    EXPECT_TRUE(words.ends_with(lost)) << words;
}

TEST_F(SilentWayOnFreeTds, EndsACommitInTimeAndSaysThatItsOutcomeIsNotKnown) {
    for (const Moment moment : {Moment::AtNextRequest, Moment::AtNextAnswer}) {
        station.BeginTrans();
        relay->Break(moment, Kind::Silence);
        const std::string words = WordsInTime([&] { station.CommitTrans(); });
        EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
        station.RollbackTrans();
        const bool arrived = moment == Moment::AtNextAnswer;
        EXPECT_EQ(server->TakeArrived().back() == "COMMIT TRANSACTION", arrived);
        relay->Mend();
        station.Close();
        station.Open(relay->ConnectionString());
    }
}

// The server has stored everything, but is too slow to say so.
TEST_F(SilentWayOnFreeTds, OfACommitAloneLeavesTheConnectionAndSaysThatItsOutcomeIsNotKnown) {
    station.Execute("Set commit in silence");
    station.BeginTrans();
    const std::string words = WordsInTime([&] { station.CommitTrans(); });
    EXPECT_TRUE(words.ends_with(unknown)) << words;
    EXPECT_EQ(words.find(lost), std::string::npos) << words;
    station.RollbackTrans();
    EXPECT_EQ(station.Execute("Select 1").RecordCount(), 1);
}

TEST_F(SilentWayOnFreeTds, OfAStatementSaysNothingOfACommit) {
    station.BeginTrans();
    const std::string words = WordsInTime([&] { station.Execute("Update and take your time"); });
    EXPECT_EQ(words.find(unknown), std::string::npos) << words;
    station.RollbackTrans();
}

} // namespace

} // namespace Quillane
