#pragma once

#include <string>
#include <vector>

namespace Quillane {

inline const std::string partyJoin =
    "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
    "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
    "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId ";

inline const std::string loadStatement =
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

inline const std::string searchStatement =
    " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
    "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
    "dbo.FunGetCommodity(Commodities.CommodityId)  AS Commodity FROM Arrivals INNER JOIN "
    "Commodities ON Arrivals.CommodityId = Commodities.CommodityId INNER JOIN Parties ON "
    "Arrivals.SellerId = Parties.PartyId  INNER JOIN ChartOfAccounts ON Parties.PartyId = "
    "ChartOfAccounts.AccountNo  Where Arrivals.ArrivalDate Between '2000-01-01T00:00:00' And "
    "'2999-12-31T00:00:00'";

/// A query of the system.
struct SystemQuery {
    std::string text;
    int rows; ///< with the sample rows
};

/// Every query of the system.
inline const std::vector<SystemQuery>& SystemQueries() {
    static const std::vector<SystemQuery> queries{
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
        {loadStatement + "1034", 3},
        {loadStatement + "1036", 1},
        {"select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
         "arrivalid = 1035",
         1},
        {"select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
         "arrivalid = 1034",
         0},
        {searchStatement + " Order By Arrivals.ArrivalId desc", 12},
        {searchStatement + " And Arrivals.ArrivalId = 1034 Order By Arrivals.ArrivalId desc", 1},
        {searchStatement +
             " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%okara%' Order By "
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

} // namespace Quillane
