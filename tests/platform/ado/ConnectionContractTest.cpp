#include "platform/ado/ConnectionContract.h"
#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

using Texts = std::vector<std::string>;

TEST_P(ConnectionContract, IsOpenBetweenOpenAndClose) {
    EXPECT_EQ(connection.State(), 1);
    connection.Close();
    EXPECT_EQ(connection.State(), 0);
    connection.Open(database->ConnectionString());
    EXPECT_EQ(connection.State(), 1);
}

TEST_P(ConnectionContract, RefusesToOpenTwice) {
    EXPECT_EQ(FailureNumberOf([&] { connection.Open(database->ConnectionString()); }),
              FailureNumber::ObjectOpen);
    EXPECT_EQ(connection.State(), 1);
}

TEST_P(ConnectionContract, RefusesEveryMemberWhileClosed) {
    connection.Close();
    const std::vector<std::function<void()>> members = {
        [&] { connection.Close(); },         [&] { connection.Execute("Select 1"); },
        [&] { connection.BeginTrans(); },    [&] { connection.CommitTrans(); },
        [&] { connection.RollbackTrans(); }, [&] { connection.DefaultDatabase(); },
        [&] { Reading("Select 1"); },
    };
    for (const auto& member : members)
        EXPECT_EQ(FailureNumberOf(member), FailureNumber::ObjectClosed);
    EXPECT_EQ(observed, Texts());
}

TEST_P(ConnectionContract, ReturnsAnOpenRecordsetForAQueryAndAClosedOneOtherwise) {
    Recordset query = connection.Execute("Select ArrivalID From Arrivals");
    EXPECT_EQ(query.State(), adStateOpen);
    EXPECT_EQ(query.RecordCount(), 0);
    EXPECT_EQ(connection.Execute("Update Arrivals Set IsPosted=0 where arrivalid=7").State(),
              adStateClosed);
    EXPECT_EQ(connection.Execute("Create Table Extra (A int)").State(), adStateClosed);
}

TEST_P(ConnectionContract, FailsWithTheTextOfTheEngine) {
    const std::string words = DatabaseFailureOf([&] { Run("Select * From NoSuchTable"); });
    EXPECT_NE(UpperCase(words).find("NOSUCHTABLE"), std::string::npos) << words;
    EXPECT_EQ(connection.State(), 1);
}

TEST_P(ConnectionContract, FailsOnAnApostropheInAValue) {
    AddThreeArrivals();
    EXPECT_NE(DatabaseFailureOf(
                  [&] { Run("Update Arrivals Set DriverName='O'Brien' Where ArrivalID=1"); }),
              "");
    EXPECT_EQ(OneValue("Select DriverName From Arrivals Where ArrivalID=1"), "Ali");
}

TEST_P(TSqlContract, AcceptsTheTSqlOfTheStatements) {
    EXPECT_EQ(OneValue("Select IsNull(Max(ArrivalID),0)+1 From Arrivals"), "1");
    AddThreeArrivals();
    EXPECT_EQ(OneValue("Select IsNull(Max(ArrivalID),0)+1 From dbo.Arrivals"), "4");
    EXPECT_EQ(AllRows("Select TOP 1 * From arrivalsbody Where ArrivalID=2"), "2,20,LES-2");
    EXPECT_EQ(AllRows("SELECT ArrivalID FROM ARRIVALS WHERE DriverName = N'ali  '"), "1");
    EXPECT_EQ(AllRows("Select ArrivalID From Arrivals Where SellerId Like '%02'"), "2");
    EXPECT_EQ(AllRows("select drivername from arrivals where arrivalid in "
                      "(select TOP 1 ArrivalId from arrivalsbody where noofbags = 20)"),
              "Bano");
}

TEST_P(TSqlContract, ListsTheForeignKeysOnATable) {
    Recordset keys = connection.Execute("EXEC sp_fkeys @pktable_name = N'Arrivals'");
    ASSERT_EQ(keys.RecordCount(), 1);
    // A catalogue may return a name in another case than the declared one.
    EXPECT_TRUE(EqualIgnoringCase(keys.Fields("PKTABLE_NAME").Text(), "Arrivals"));
    EXPECT_TRUE(EqualIgnoringCase(keys.Fields("PKColumn_Name").Text(), "ArrivalID"));
    EXPECT_TRUE(EqualIgnoringCase(keys.Fields("FKTABLE_NAME").Text(), "ArrivalsBody"));
    EXPECT_TRUE(EqualIgnoringCase(keys.Fields("FKColumn_Name").Text(), "ArrivalId"));
    EXPECT_EQ(keys.Fields("KEY_SEQ").Text(), "1");
    EXPECT_EQ(connection.Execute("EXEC sp_fkeys @pktable_name = N'BagsClasses'").RecordCount(), 0);
}

TEST_P(ConnectionContract, EnforcesForeignKeys) {
    AddThreeArrivals();
    DatabaseFailureOf([&] { Run("Delete From arrivals where arrivalid=1"); });
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "3");
}

TEST_P(ConnectionContract, CommitKeepsAndRollbackUndoes) {
    AddThreeArrivals();
    connection.BeginTrans();
    Run("Update Arrivals Set IsPosted=0 where arrivalid=1");
    connection.CommitTrans();
    connection.BeginTrans();
    Run("Update Arrivals Set IsPosted=0 where arrivalid=2");
    connection.RollbackTrans();
    EXPECT_EQ(AllRows("Select IsPosted From Arrivals Order By ArrivalID"), "0;5;5");
}

TEST_P(ConnectionContract, AFailedStatementLeavesTheTransactionToItsCaller) {
    AddThreeArrivals();
    connection.BeginTrans();
    Run("Update Arrivals Set IsPosted=0 where arrivalid=1");
    DatabaseFailureOf([&] { Run("Insert Into Arrivals (ArrivalID) Values (2)"); });
    connection.RollbackTrans();
    EXPECT_EQ(AllRows("Select IsPosted From Arrivals Order By ArrivalID"), "5;5;5");
}

TEST_P(ConnectionContract, EndsATransactionInWhichNothingRan) {
    connection.BeginTrans();
    connection.CommitTrans();
    connection.BeginTrans();
    connection.RollbackTrans();
    AddThreeArrivals();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals"), "3");
}

TEST_P(ConnectionContract, RefusesToEndATransactionThatNeverBegan) {
    DatabaseFailureOf([&] { connection.RollbackTrans(); });
    DatabaseFailureOf([&] { connection.CommitTrans(); });
    connection.BeginTrans();
    connection.RollbackTrans();
    DatabaseFailureOf([&] { connection.RollbackTrans(); });
    EXPECT_EQ(observed, Texts({"BeginTrans", "RollbackTrans"}));
}

TEST_P(ConnectionContract, ARollbackWithoutATransactionReportsTheLastFailureToo) {
    const std::string nothingOpen = "No transaction is open, so none can be rolled back.";
    const std::string words = DatabaseFailureOf([&] { Run("Select * From NoSuchTable"); });
    EXPECT_EQ(DatabaseFailureOf([&] { connection.RollbackTrans(); }), words + "\n" + nothingOpen);
    AddThreeArrivals();
    EXPECT_EQ(DatabaseFailureOf([&] { connection.RollbackTrans(); }), nothingOpen);
}

TEST_P(ConnectionContract, RefusesATransactionInsideAnother) {
    AddThreeArrivals();
    connection.BeginTrans();
    Run("Update Arrivals Set IsPosted=0 where arrivalid=1");
    DatabaseFailureOf([&] { connection.BeginTrans(); });
    connection.RollbackTrans();
    EXPECT_EQ(OneValue("Select Count(*) From Arrivals Where IsPosted=0"), "0");
}

TEST_P(ConnectionContract, RollsAnOpenTransactionBackWhenItCloses) {
    AddThreeArrivals();
    connection.BeginTrans();
    Run("Delete From ArrivalsBody");
    connection.Close();
    connection.Open(database->ConnectionString());
    EXPECT_EQ(OneValue("Select Count(*) From ArrivalsBody"), "6");
}

TEST_P(ConnectionContract, ShowsTheObserverEveryTextBeforeItRuns) {
    connection.BeginTrans();
    Run("Update Arrivals Set IsPosted=0 where arrivalid=1");
    Reading(" Select 1+2");
    connection.CommitTrans();
    DatabaseFailureOf([&] { Run("nonsense"); });
    EXPECT_EQ(observed, Texts({"BeginTrans", "Update Arrivals Set IsPosted=0 where arrivalid=1",
                               " Select 1+2", "CommitTrans", "nonsense"}));
}

TEST_P(ConnectionContract, KeepsLettersBeyondAscii) {
    Run("Insert Into Arrivals (ArrivalID, DriverName) Values (1, N'علی Müller')");
    EXPECT_EQ(OneValue("Select DriverName From Arrivals"), "علی Müller");
}

const auto nameOfEngine = [](const auto& engine) { return engine.param.name; };

INSTANTIATE_TEST_SUITE_P(Engines, ConnectionContract, testing::ValuesIn(ContractEngines()),
                         nameOfEngine);
INSTANTIATE_TEST_SUITE_P(Engines, TSqlContract, testing::ValuesIn(TSqlContractEngines()),
                         nameOfEngine);

} // namespace

} // namespace Quillane
