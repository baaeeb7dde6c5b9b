// The move to SQL Server, with the parts that only SQL Server has: the schema's script, identities,
// roles.

#include "ServerFixture.h"

#include "data/ConfigFile.h"
#include "office/move/MoveRows.h"
#include "servers/ServerLogin.h"
#include "setup/DatabaseScripts.h"
#include "setup/SchemaUpgrade.h"
#include "setup/ScriptBatches.h"
#include "setup/SqlServerDatabaseSetup.h"

namespace Quillane::Office {
namespace {

bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class MovedToSqlServer : public StationToMoveToServer {
protected:
    Value Ask(const std::string& query) { return server.Execute(query).Fields(0); }
};

TEST_F(MovedToSqlServer, StationWorksOnTheServerAfterTheMove) {
    const std::map<std::string, long> counts = Counts();
    const auto moved = MoveIt();
    ASSERT_TRUE(moved.has_value());
    ExpectMoved(counts);
    Connection connection;
    connection.Open(
        StationConnectionString("Linux", {}, ReadFirstField(station.folder.File("Config.ini"))));
    EXPECT_EQ(ReadSchemaVersion(connection), SchemaVersionOfProgram());
    EXPECT_EQ(connection.Execute("Select dbo.FunGetPartyName('6010001')").Fields(0).Text(),
              station
                  .Rows("SELECT A.AccountName || '-' || C.CityName FROM ChartOfAccounts A JOIN "
                        "Parties P ON P.PartyId = A.AccountNo JOIN Cities C ON C.CityId = P.CityId "
                        "WHERE A.AccountNo = '6010001'")
                  .at(0)
                  .at(0)
                  .Text());
    EXPECT_FALSE(Ask("SELECT DATABASE_PRINCIPAL_ID(N'StationOperator')").IsNull());
    EXPECT_TRUE(Ask("SELECT OBJECT_ID(N'dbo.StationMove')").IsNull());
}

TEST_F(MovedToSqlServer, NumberOfABagLineIsNeverReused) {
    station.Run("UPDATE sqlite_sequence SET seq = seq + 50 WHERE name = 'ArrivalsBody'");
    const double last = station.Rows("SELECT seq FROM sqlite_sequence WHERE name = 'ArrivalsBody'")
                            .at(0)
                            .at(0)
                            .Number();
    const double sum =
        station.Rows("SELECT sum(LineId * NetWeight) FROM ArrivalsBody").at(0).at(0).Number();
    ASSERT_TRUE(MoveIt().has_value());
    EXPECT_EQ(Ask("SELECT SUM(LineId * NetWeight) FROM dbo.ArrivalsBody").Number(), sum);
    server.Execute(
        "INSERT INTO dbo.ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
        "NoOfBags, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
        "OtherDeduction, NetWeight) SELECT MAX(ArrivalID), MAX(CommodityId), 1, 1, 1, 0, "
        "0, 0, 0, 0, 0 FROM dbo.Arrivals");
    EXPECT_GT(Ask("SELECT MAX(LineId) FROM dbo.ArrivalsBody").Number(), last);
    server.Execute("INSERT INTO dbo.PurchaseBody (PurchaseId) VALUES (1)");
}

TEST_F(MovedToSqlServer, OwnerCreatesTheTablesAndGivesTheStationItsRights) {
    const ServerLogin gate(server, "Gate-2026");
    MoveOrder order = Order();
    order.owner = {.userName = order.place.userName, .password = order.place.password};
    order.place.userName = gate.name;
    order.place.password = "Gate-2026";
    ASSERT_TRUE(MoveToServer(order, work).has_value());
    const TryOut tried = TrySqlServer(order.place, {});
    EXPECT_TRUE(tried.works) << tried.answer;
    EXPECT_TRUE(tried.contents.isComplete);
    EXPECT_EQ(tried.contents.arrivals, Counts()["Arrivals"]);
    EXPECT_TRUE(Says(Config(), "UID=" + gate.name + ";"));
}

TEST_F(MovedToSqlServer, WrongPasswordIsReportedAndNothingIsDone) {
    const std::map<std::string, long> counts = Counts();
    MoveOrder order = Order();
    order.place.password = "wrong";
    EXPECT_TRUE(Says(FailureOfMove(order), "The move has not been finished."));
    ExpectTheOldStation(counts);
    EXPECT_TRUE(Ask("SELECT OBJECT_ID(N'dbo.Arrivals')").IsNull());
}

TEST_F(MovedToSqlServer, SignInThatMayNotCreateTablesIsReportedAndNothingIsDone) {
    const std::map<std::string, long> counts = Counts();
    const ServerLogin gate(server, "Gate-2026");
    server.Execute("CREATE USER [" + gate.name + "] FOR LOGIN [" + gate.name + "]");
    MoveOrder order = Order();
    order.place.userName = gate.name;
    order.place.password = "Gate-2026";
    const std::string words = FailureOfMove(order);
    EXPECT_TRUE(Says(words, "The move has not been finished.")) << words;
    EXPECT_TRUE(Says(words, "denied")) << words;
    ExpectTheOldStation(counts);
}

TEST_F(MovedToSqlServer, NewerSchemaIsNotChanged) {
    const std::map<std::string, long> counts = Counts();
    server.Execute("CREATE TABLE dbo.StationSchema (SchemaVersion float NOT NULL)");
    server.Execute("INSERT INTO dbo.StationSchema VALUES (99)");
    EXPECT_THROW(MoveIt(), MoveRefused);
    EXPECT_TRUE(Says(FailureOfMove(Order()), "is 99, newer than that of this program"));
    EXPECT_EQ(Ask("SELECT SchemaVersion FROM dbo.StationSchema").Number(), 99);
    EXPECT_TRUE(Ask("SELECT OBJECT_ID(N'dbo.StationMove')").IsNull());
    ExpectTheOldStation(counts);
}

TEST_F(MovedToSqlServer, IncompleteSchemaIsCompleted) {
    const std::map<std::string, long> counts = Counts();
    int batches = 0;
    RunScript(server, DatabaseScripts::SqlServerSchema, [&](int, int) { return ++batches < 9; });
    ASSERT_TRUE(Ask("SELECT OBJECT_ID(N'dbo.StationUsers')").IsNull());
    ASSERT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

TEST_F(MovedToSqlServer, SchemaCreatedByHandIsFilled) {
    const std::map<std::string, long> counts = Counts();
    RunScript(server, DatabaseScripts::SqlServerSchema);
    ASSERT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

TEST_F(MovedToSqlServer, ArrivalsOfAnotherStationAreNotChanged) {
    const std::map<std::string, long> counts = Counts();
    SetUpSqlServerDatabase(server, SampleParticulars());
    server.Execute("UPDATE dbo.ArrivalsBody SET NetWeight = NetWeight + 1");
    EXPECT_THROW(MoveIt(), MoveRefused);
    EXPECT_TRUE(Says(FailureOfMove(Order()), "Arrivals (12 rows)"));
    ExpectTheOldStation(counts);
}

TEST_F(MovedToSqlServer, TextThatIsTooLongIsNamedAndTheNextMoveSucceeds) {
    const std::map<std::string, long> counts = Counts();
    station.Run("UPDATE Arrivals SET PermitNo = '" + std::string(31, '7') +
                "' WHERE ArrivalID = 1036");
    const std::string words = FailureOfMove(Order());
    EXPECT_TRUE(Says(words, "The server refuses a row of the table Arrivals, ArrivalID 1036: "))
        << words;
    ExpectTheOldStation(counts);
    station.Run("UPDATE Arrivals SET PermitNo = '7' WHERE ArrivalID = 1036");
    ASSERT_TRUE(MoveIt().has_value());
    ExpectMoved(counts);
}

} // namespace
} // namespace Quillane::Office
