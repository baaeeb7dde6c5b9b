#include "slip/SlipStatement.h"

#include <gtest/gtest.h>

#include <limits>

namespace Quillane {
namespace {

// On one line, so that every blank is visible.
// clang-format off
constexpr const char* whole = " SELECT A.ArrivalId, A.ArrivalDate, A.PermitNo, A.CenterId, A.CommodityId, A.SellerId, A.ContractId, dbo.FunGetPartyName(Parties.PartyId) AS PartyName,  Parties.PartyId, Parties.Address, C.CityName, PRCenters.CenterName, dbo.FunGetPartyName(PContracts.PartyId) AS CPartyName, AB.VehicleNo, AB.BagWeight, AB.NoOfBags, AB.TareWeight, AB.BagsDeduction, AB.ScaleDeduction,  AB.OtherDeduction, AB.DriverName, AB.BiltyNo, dbo.FunGetCommodity(A.CommodityId) As CommodityName, AB.BagsClass, AB.BagsType FROM Arrivals A INNER JOIN Parties ON A.SellerId = Parties.PartyId INNER JOIN Cities C ON C.CityID = Parties.CityId  LEFT OUTER JOIN PContracts ON A.ContractId = PContracts.ContractId LEFT OUTER JOIN PRCenters ON A.CenterId = PRCenters.CenterId INNER JOIN (SELECT ArrivalsBody.VehicleNo,  ArrivalsBody.BagsTypeId, ArrivalsBody.BagsClassId, ArrivalsBody.BagWeight, ArrivalsBody.NoOfBags, ArrivalsBody.TareWeight, ArrivalsBody.BagsDeduction, ArrivalsBody.OtherDeduction, ArrivalsBody.ScaleDeduction,  ArrivalsBody.DriverName, ArrivalsBody.BiltyNo, BagsClasses.BagsClass, BagsTypes.BagsType, ArrivalsBody.ArrivalId FROM ArrivalsBody INNER JOIN BagsClasses  ON ArrivalsBody.BagsClassId = BagsClasses.BagsClassId INNER JOIN BagsTypes ON ArrivalsBody.BagsTypeId = BagsTypes.BagsTypeId) AB ON A.ArrivalId = AB.ArrivalId  WHERE A.ArrivalId =";
// clang-format on

TEST(SlipStatement, IsOneLineWithAllItsBlanks) {
    EXPECT_EQ(SlipStatement(1042), std::string(whole) + "1042");
}

TEST(SlipStatement, EndsInThePlainDigitsOfTheNumber) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {0, "0"},
        {-1, "-1"},
        {std::numeric_limits<std::int32_t>::max(), "2147483647"},
        {std::numeric_limits<std::int32_t>::min(), "-2147483648"}};
    for (const auto& [number, digits] : cases)
        EXPECT_EQ(SlipStatement(number), std::string(whole) + digits);
}

} // namespace
} // namespace Quillane
