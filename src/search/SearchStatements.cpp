#include "search/SearchStatements.h"

#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

std::string ArrivalCondition(const ArrivalFilters& filters) {
    std::string condition = " Where Arrivals.ArrivalDate Between '" +
                            DateLiteral(filters.fromDate) + "' And '" +
                            DateLiteral(filters.toDate) + "'";
    if (!filters.id.empty())
        condition += " And Arrivals.ArrivalId = " + NumberText(Val(filters.id));
    if (!filters.name.empty())
        condition +=
            " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%" + filters.name + "%'";
    return condition;
}

} // namespace

std::string ArrivalSearchStatement(const ArrivalFilters& filters) {
    return " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
           "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
           "dbo.FunGetCommodity(Commodities.CommodityId) "
           " AS Commodity FROM Arrivals "
           "INNER JOIN Commodities ON Arrivals.CommodityId = Commodities.CommodityId "
           "INNER JOIN Parties ON Arrivals.SellerId = Parties.PartyId "
           " INNER JOIN ChartOfAccounts ON Parties.PartyId = ChartOfAccounts.AccountNo " +
           ArrivalCondition(filters) + " Order By Arrivals.ArrivalId desc";
}

std::string PartySearchStatement(std::string_view name) {
    std::string statement =
        "Select P.PartyId,C.AccountName,Ct.CityName from Parties P "
        "Inner Join ChartofAccounts C On P.PartyId = C.AccountNo "
        "Inner Join Cities CT On P.CityId = CT.CityId wHERE p.PartyId Like '6%'";
    if (!name.empty())
        statement.append(" And C.AccountName Like '%").append(name).append("%'");
    return statement;
}

std::string PartyIdCriterion(std::string_view id) {
    return "PartyId='" + Doubled(id, '\'') + "'";
}

} // namespace Quillane
