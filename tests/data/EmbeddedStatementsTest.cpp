// Every statement of the system runs on the embedded schema, and finds its rows by an index.

#include "SampleDatabase.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace Quillane {

namespace {

const std::string partyJoin =
    "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
    "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
    "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId ";

const std::string load =
    " SELECT A.ArrivalId, A.ArrivalDate, A.PermitNo, A.CenterId, A.CommodityId, A.SellerId, "
    "A.ContractId, dbo.FunGetPartyName(Parties.PartyId) AS PartyName,  Parties.PartyId, "
    "Parties.Address, C.CityName, PRCenters.CenterName, dbo.FunGetPartyName(PContracts.PartyId) AS "
    "CPartyName, AB.VehicleNo, AB.BagWeight, AB.NoOfBags, AB.TareWeight, AB.BagsDeduction, "
    "AB.ScaleDeduction,  AB.OtherDeduction, AB.DriverName, AB.BiltyNo, "
    "dbo.FunGetCommodity(A.CommodityId) As CommodityName, AB.BagsClass, AB.BagsType FROM Arrivals "
    "A INNER JOIN Parties ON A.SellerId = Parties.PartyId INNER JOIN Cities C ON C.CityID = "
    "Parties.CityId  LEFT OUTER JOIN PContracts ON A.ContractId = PContracts.ContractId LEFT OUTER "
    "JOIN PRCenters ON A.CenterId = PRCenters.CenterId INNER JOIN (SELECT ArrivalsBody.VehicleNo,  "
    "ArrivalsBody.BagsTypeId, ArrivalsBody.BagsClassId, ArrivalsBody.BagWeight, "
    "ArrivalsBody.NoOfBags, ArrivalsBody.TareWeight, ArrivalsBody.BagsDeduction, "
    "ArrivalsBody.OtherDeduction, ArrivalsBody.ScaleDeduction,  ArrivalsBody.DriverName, "
    "ArrivalsBody.BiltyNo, BagsClasses.BagsClass, BagsTypes.BagsType, ArrivalsBody.ArrivalId FROM "
    "ArrivalsBody INNER JOIN BagsClasses  ON ArrivalsBody.BagsClassId = BagsClasses.BagsClassId "
    "INNER JOIN BagsTypes ON ArrivalsBody.BagsTypeId = BagsTypes.BagsTypeId) AB ON A.ArrivalId = "
    "AB.ArrivalId  WHERE A.ArrivalId =";

const std::string search =
    " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
    "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
    "dbo.FunGetCommodity(Commodities.CommodityId)  AS Commodity FROM Arrivals INNER JOIN "
    "Commodities ON Arrivals.CommodityId = Commodities.CommodityId INNER JOIN Parties ON "
    "Arrivals.SellerId = Parties.PartyId  INNER JOIN ChartOfAccounts ON Parties.PartyId = "
    "ChartOfAccounts.AccountNo  Where Arrivals.ArrivalDate Between '2000-01-01T00:00:00' And "
    "'2999-12-31T00:00:00'";

struct Query {
    std::string text;
    int rows; ///< with the sample rows
};

const std::vector<Query>& Queries() {
    static const std::vector<Query> queries{
        {"Select * from PortSettings", 5},
        {"Select IsNull(Max(ArrivalID),0)+1 From Arrivals", 1},
        {"Select Count(*) From Arrivals Where ArrivalID = 1034", 1},
        {"Select count(*) From Arrivals where ArrivalID = 1034", 1},
        {"Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = "
         "1036",
         1},
        {"Select * from Arrivals Where ArrivalId=1034", 1},
        {"Select * From arrivalsbody where arrivalid=1034", 3},
        {"Select * From ArrivalsBody where arrivalid=1034", 3},
        {load + "1034", 3},
        {load + "1036", 1},
        {"select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
         "arrivalid = 1035",
         1},
        {"select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
         "arrivalid = 1034",
         0},
        {search + " Order By Arrivals.ArrivalId desc", 12},
        {search + " And Arrivals.ArrivalId = 1034 Order By Arrivals.ArrivalId desc", 1},
        {search + " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%okara%' Order By "
                  "Arrivals.ArrivalId desc",
         4},
        {"Select P.PartyId,C.AccountName,Ct.CityName from Parties P Inner Join ChartofAccounts C "
         "On P.PartyId = C.AccountNo Inner Join Cities CT On P.CityId = CT.CityId wHERE p.PartyId "
         "Like '6%'",
         38},
        {"Select P.PartyId,C.AccountName,Ct.CityName from Parties P Inner Join ChartofAccounts C "
         "On P.PartyId = C.AccountNo Inner Join Cities CT On P.CityId = CT.CityId wHERE p.PartyId "
         "Like '6%' And C.AccountName Like '%brothers%'",
         2},
        {partyJoin + " ORDER BY ChartOfAccounts.AccountName", 42},
        {partyJoin + "WHERE     (Parties.IsSeller = 1) AND (ChartOfAccounts.IsEditable = 1) ORDER "
                     "BY ChartOfAccounts.AccountName",
         27},
        {partyJoin + "WHERE     (Parties.IsBuyer = 1) AND (ChartOfAccounts.IsEditable = 1) ORDER "
                     "BY ChartOfAccounts.AccountName",
         12},
        {partyJoin + "WHERE     (Parties.IsBroker = 1) AND (ChartOfAccounts.IsEditable = 1) ORDER "
                     "BY ChartOfAccounts.AccountName",
         4},
        {" select commodityid as id, dbo.fungetcommodity(commodityid) as name from commodities "
         "Where 1 = 1 and IsPurchaseable = 1 and IsWheatCommodity = 1",
         4},
        {" select commodityid as id, dbo.fungetcommodity(commodityid) as name from commodities "
         "Where 1 = 1 and IsSaleable = 1",
         4},
        {"select commodityid as id, dbo.fungetcommodity(commodityid) as name from commodities "
         "Where 1 = 1",
         10},
        {"select BagsClassid as ID, BagsClass as Name from bagsclasses", 4},
        {"select BagsTypeID as ID, BagsType As Name from bagstypes Order By BagsType", 5},
        {"EXEC sp_fkeys @pktable_name = N'Arrivals'", 3},
        {"Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=1037", 1},
        {"Select TOP 1 * From PurchaseBody Where ArrivalId=1035", 1},
        {"Select TOP 1 * From PurchaseBody Where ArrivalId=1034", 0},
        {"Select TOP 1 * From SaleRecoveryBody Where SaleId=9001", 1},
        {"Select registrykey, value From Project_Registry", 4},
    };
    return queries;
}

/// The plan of a statement, one line for each step.
std::vector<std::string> PlanOf(SampleDatabase& database, const std::string& statement) {
    std::vector<std::string> plan;
    Recordset steps = database.connection.Execute("EXPLAIN QUERY PLAN " + statement);
    for (; !steps.Eof(); steps.MoveNext())
        plan.push_back(steps.Fields("detail").Text());
    return plan;
}

} // namespace

TEST(EmbeddedStatements, EveryQueryRunsAndFindsItsRows) {
    SampleDatabase database;
    for (const Query& query : Queries())
        EXPECT_EQ(database.connection.Execute(query.text).RecordCount(), query.rows) << query.text;
}

TEST(EmbeddedStatements, EveryWriteHitsItsRow) {
    SampleDatabase database;
    struct Write {
        const char* statement;
        const char* question;
        const char* answer;
    };
    constexpr Write writes[] = {
        {"Update PortSettings set RegistryValue='2' where registrykey = 'PortName'",
         "Select RegistryValue From PortSettings Where RegistryKey = 'PORTNAME'", "2"},
        {"Update Project_Registry set value ='BRELLIX' Where registrykey ='CompanyName'",
         "Select value From Project_Registry Where registrykey = 'COMPANYNAME'", "BRELLIX"},
        {"Update Arrivals Set IsPosted=0 where arrivalid=1036",
         "Select IsPosted From Arrivals Where ArrivalID = 1036", "0"},
        {"Delete From ArrivalsBody Where arrivalid=1031",
         "Select Count(*) From ArrivalsBody Where ArrivalId = 1031", "0"},
        {"Delete From arrivals where arrivalid=1031",
         "Select Count(*) From Arrivals Where ArrivalID = 1031", "0"},
    };
    for (const Write& write : writes) {
        database.connection.Execute(write.statement);
        EXPECT_EQ(database.Ask(write.question).Text(), write.answer) << write.statement;
    }
}

TEST(EmbeddedStatements, ReadNoArrivalBeyondThoseAskedFor) {
    SampleDatabase database;
    const std::vector<std::string> lookUps{
        "Select Count(*) From Arrivals Where ArrivalID = 1034",
        "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = 1036",
        "Select * from Arrivals Where ArrivalId=1034",
        "Select * From ArrivalsBody where arrivalid=1034",
        "Update Arrivals Set IsPosted=0 where arrivalid=1034",
        "Delete From arrivals where arrivalid=1034",
        "select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
        "arrivalid = 1035",
        "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=1037",
        "Select TOP 1 * From PurchaseBody Where ArrivalId=1035",
        "Select TOP 1 * From SaleRecoveryBody Where SaleId=9001",
        "Select RegistryValue From PortSettings where registrykey = 'PortName'",
        load + "1034",
        search + " Order By Arrivals.ArrivalId desc",
    };
    for (const std::string& statement : lookUps)
        for (const std::string& step : PlanOf(database, statement))
            for (const char* table : {"A", "Arrivals", "ArrivalsBody", "PurchaseBody", "arrivals",
                                      "LaboratoryReports", "SaleRecoveryBody", "PortSettings"})
                // A walk down the ids in order is what the search asks for.
                EXPECT_TRUE(step != std::string("SCAN ") + table || statement.starts_with(search))
                    << statement << "\n"
                    << step;
}

} // namespace Quillane
