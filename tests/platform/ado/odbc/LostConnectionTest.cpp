// The connection between a station and its server is lost at each moment of a transaction.

#include "platform/ado/odbc/OdbcOnPostgres.h"
#include "servers/ServerRelay.h"
#include "servers/TdsServer.h"
#include "support/SkipIfMissing.h"

namespace Quillane {

namespace {

using Moment = ServerRelay::Moment;
using Kind = ServerRelay::Kind;

const std::string lost =
    "\nThe connection to the database server is lost. Restart the program to reconnect.";
const std::string unknown = "\nThe save or removal may or may not have completed. "
                            "Check the record before repeating it.";

/// A server with data, and a station that is connected to it through a relay.
class LostConnectionToPostgres : public OdbcOnPostgres {
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
    /// The failure of a commit during which the connection is lost at this moment.
    std::string FailureOfCommit(Moment moment) {
        BeginSave();
        relay->Break(moment);
        const std::string words = DatabaseFailureOf([&] { station.CommitTrans(); });
        station.RollbackTrans();
        return words;
    }
    void ExpectReconnectionWorks() {
        relay->Restore();
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

TEST_F(LostConnectionToPostgres, NextStatementAndAllLaterOnesReportIt) {
    for (const Moment moment : {Moment::Now, Moment::AtNextRequest, Moment::AtNextAnswer}) {
        relay->Break(moment);
        const std::string words = DatabaseFailureOf([&] { station.Execute("Select 1"); });
        EXPECT_GT(words.size(), lost.size());
        EXPECT_TRUE(words.ends_with(lost)) << words;
        EXPECT_TRUE(DatabaseFailureOf([&] { station.Execute("Select 1"); }).ends_with(lost));
        relay->Restore();
        station.Close();
        station.Open(relay->ConnectionString());
    }
}

TEST_F(LostConnectionToPostgres, RollbackAfterAFailedBeginReportsIt) {
    relay->Break(Moment::Now);
    const std::string words = DatabaseFailureOf([&] { station.BeginTrans(); });
    EXPECT_TRUE(words.ends_with(lost)) << words;
    EXPECT_EQ(DatabaseFailureOf([&] { station.RollbackTrans(); }),
              words + "\nNo transaction is open, so none can be rolled back.");
}

TEST_F(LostConnectionToPostgres, RollsBackTheOpenTransaction) {
    for (const Moment moment : {Moment::Now, Moment::AtNextRequest, Moment::AtNextAnswer}) {
        BeginSave();
        relay->Break(moment);
        const std::string words =
            DatabaseFailureOf([&] { station.Execute("Insert Into Loads Values (3)"); });
        EXPECT_TRUE(words.ends_with(lost)) << words;
        DatabaseFailureOf([&] { station.CommitTrans(); });
        station.RollbackTrans();
        EXPECT_EQ(OneText("Select Count(*) From Loads"), "0");
        relay->Restore();
        station.Close();
        station.Open(relay->ConnectionString());
    }
    ExpectReconnectionWorks();
}

TEST_F(LostConnectionToPostgres, BeforeTheCommitArrivesStoresNothingAndReportsAnUnknownOutcome) {
    const std::string words = FailureOfCommit(Moment::AtNextRequest);
    EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
    EXPECT_EQ(Stored(), "0");
    ExpectReconnectionWorks();
}

TEST_F(LostConnectionToPostgres, BeforeTheAnswerToTheCommitStoresAllAndReportsAnUnknownOutcome) {
    const std::string words = FailureOfCommit(Moment::AtNextAnswer);
    EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
    EXPECT_EQ(Stored(), "1");
    ExpectReconnectionWorks();
}

/// A station's driver for SQL Server, and a server that stops responding.
class UnresponsiveTdsServer : public testing::Test {
protected:
    static constexpr int TimeoutSeconds = 1;

    void SetUp() override {
        SKIP_IF_MISSING(TdsServer::WhyMissing());
        server.emplace();
        relay.emplace(server->ConnectionString());
        station.CommandTimeout = TimeoutSeconds;
        station.Open(relay->ConnectionString());
        server->TakeArrived();
    }

    /// The failure of an action after the time-out.
    template <typename Action>
    std::string TimeoutOf(Action action) {
        const std::string words = DatabaseFailureOf(action);
        EXPECT_TRUE(words.find("Timeout expired") != std::string::npos) << words;
        return words;
    }

    std::optional<TdsServer> server;
    std::optional<ServerRelay> relay;
    Connection station;
};

TEST_F(UnresponsiveTdsServer, StatementTimesOut) {
    relay->Break(Moment::Now, Kind::Silence);
    const std::string words = TimeoutOf([&] { station.Execute("Select 1"); });
    EXPECT_TRUE(words.ends_with(lost)) << words;
}

TEST_F(UnresponsiveTdsServer, CommitTimesOutAndReportsAnUnknownOutcome) {
    for (const Moment moment : {Moment::AtNextRequest, Moment::AtNextAnswer}) {
        station.BeginTrans();
        relay->Break(moment, Kind::Silence);
        const std::string words = TimeoutOf([&] { station.CommitTrans(); });
        EXPECT_TRUE(words.ends_with(lost + unknown)) << words;
        station.RollbackTrans();
        const bool arrived = moment == Moment::AtNextAnswer;
        EXPECT_EQ(server->TakeArrived().back() == "COMMIT TRANSACTION", arrived);
        relay->Restore();
        station.Close();
        station.Open(relay->ConnectionString());
    }
}

// The server has stored everything, but its answer comes too late.
TEST_F(UnresponsiveTdsServer, SlowCommitReportsAnUnknownOutcomeAndKeepsTheConnection) {
    station.Execute("Set commit in silence");
    station.BeginTrans();
    const std::string words = TimeoutOf([&] { station.CommitTrans(); });
    EXPECT_TRUE(words.ends_with(unknown)) << words;
    EXPECT_EQ(words.find(lost), std::string::npos) << words;
    station.RollbackTrans();
    EXPECT_EQ(station.Execute("Select 1").RecordCount(), 1);
}

TEST_F(UnresponsiveTdsServer, SlowStatementReportsNoUnknownOutcome) {
    station.BeginTrans();
    const std::string words = TimeoutOf([&] { station.Execute("Update and take your time"); });
    EXPECT_EQ(words.find(unknown), std::string::npos) << words;
    station.RollbackTrans();
}

} // namespace

} // namespace Quillane
