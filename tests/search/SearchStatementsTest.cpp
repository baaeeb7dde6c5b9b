#include "search/SearchStatements.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Quillane {
namespace {

constexpr std::string_view ArrivalsBefore =
    " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
    "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
    "dbo.FunGetCommodity(Commodities.CommodityId)  AS Commodity FROM Arrivals INNER JOIN "
    "Commodities ON Arrivals.CommodityId = Commodities.CommodityId INNER JOIN Parties ON "
    "Arrivals.SellerId = Parties.PartyId  INNER JOIN ChartOfAccounts ON Parties.PartyId = "
    "ChartOfAccounts.AccountNo  Where Arrivals.ArrivalDate Between '2025-11-20T00:00:00' And "
    "'2026-11-20T00:00:00'";
constexpr std::string_view ArrivalsAfter = " Order By Arrivals.ArrivalId desc";

std::string ArrivalsWith(std::string_view conditions) {
    return std::string(ArrivalsBefore).append(conditions).append(ArrivalsAfter);
}

ArrivalFilters Filters(std::string id, std::string name) {
    using namespace std::chrono;
    return {.fromDate = year(2025) / 11 / 20,
            .toDate = year(2026) / 11 / 20,
            .id = std::move(id),
            .name = std::move(name)};
}

TEST(ArrivalSearchStatement, HasTheExactText) {
    EXPECT_EQ(ArrivalSearchStatement(Filters("", "")), ArrivalsWith(""));
    EXPECT_EQ(ArrivalSearchStatement(Filters("1042", "Noor")),
              ArrivalsWith(" And Arrivals.ArrivalId = 1042 And "
                           "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%Noor%'"));
}

TEST(ArrivalSearchStatement, IdIsItsLeadingNumber) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"1042", "1042"},
        {"12x", "12"},
        {"x12", "0"},
        {"abc", "0"},
        {" ", "0"},
        {"   ", "0"},
        {" 10 42 ", "1042"},
        {"0012", "12"},
        {"-5", "-5"},
        {"-0", "0"},
        {"+7", "7"},
        {"1.5", "1.5"},
        {".", "0"},
        {"40000", "40000"},
        {"2147483648", "2147483648"},
        {"9999999999", "9999999999"},
        {"123456789012345", "123456789012345"},
        {"1234567890123456", "1.23456789012346E+15"},
        {"1e3", "1000"},
        {"1e400", "1.79769313486232E+308"},
        {"1'; Delete From Arrivals", "1"},
    };
    for (const auto& [typed, number] : cases)
        EXPECT_EQ(ArrivalSearchStatement(Filters(typed, "")),
                  ArrivalsWith(" And Arrivals.ArrivalId = " + number))
            << "typed: \"" << typed << '"';
}

TEST(ArrivalSearchStatement, NameIsNotEscaped) {
    for (const std::string name :
         {"Noor", " ", "O'Neil", "50%", "A_B", "[A-M]", "\"", "--", "محمد", "Café", " Noor "})
        EXPECT_EQ(ArrivalSearchStatement(Filters("", name)),
                  ArrivalsWith(" And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%" +
                               name + "%'"));
}

TEST(ArrivalSearchStatement, ReversedRangeIsSentUnchanged) {
    ArrivalFilters filters = Filters("", "");
    std::swap(filters.fromDate, filters.toDate);
    EXPECT_NE(ArrivalSearchStatement(filters).find(
                  " Where Arrivals.ArrivalDate Between '2026-11-20T00:00:00' And "
                  "'2025-11-20T00:00:00' Order By Arrivals.ArrivalId desc"),
              std::string::npos);
}

TEST(PartySearchStatement, HasTheExactText) {
    const std::string all = "Select P.PartyId,C.AccountName,Ct.CityName from Parties P Inner Join "
                            "ChartofAccounts C On P.PartyId = C.AccountNo Inner Join Cities CT On "
                            "P.CityId = CT.CityId wHERE p.PartyId Like '6%'";
    EXPECT_EQ(PartySearchStatement(""), all);
    for (const std::string name : {"Noor", " ", "O'Neil", "50%", "A_B", "[A-M]", "محمد"})
        EXPECT_EQ(PartySearchStatement(name), all + " And C.AccountName Like '%" + name + "%'");
}

TEST(PartyIdCriterion, ApostrophesAreDoubledAndBlanksKept) {
    EXPECT_EQ(PartyIdCriterion("6010001"), "PartyId='6010001'");
    EXPECT_EQ(PartyIdCriterion(" 601 "), "PartyId=' 601 '");
    EXPECT_EQ(PartyIdCriterion("6'1''"), "PartyId='6''1'''''");
    EXPECT_EQ(PartyIdCriterion("'"), "PartyId=''''");
}

} // namespace
} // namespace Quillane
