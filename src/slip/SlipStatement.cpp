#include "slip/SlipStatement.h"

namespace Quillane {

std::string SlipStatement(std::int32_t arrivalNo) {
    std::string statement;
    statement += " SELECT A.ArrivalId, A.ArrivalDate, A.PermitNo, A.CenterId, A.CommodityId,"
                 " A.SellerId, A.ContractId, dbo.FunGetPartyName(Parties.PartyId) AS PartyName, ";
    statement += " Parties.PartyId, Parties.Address, C.CityName, PRCenters.CenterName,"
                 " dbo.FunGetPartyName(PContracts.PartyId) AS CPartyName, AB.VehicleNo,"
                 " AB.BagWeight, AB.NoOfBags, AB.TareWeight, AB.BagsDeduction, AB.ScaleDeduction, ";
    statement +=
        " AB.OtherDeduction, AB.DriverName, AB.BiltyNo, dbo.FunGetCommodity(A.CommodityId)"
        " As CommodityName, AB.BagsClass, AB.BagsType FROM Arrivals A INNER JOIN Parties ON"
        " A.SellerId = Parties.PartyId INNER JOIN Cities C ON C.CityID = Parties.CityId ";
    statement += " LEFT OUTER JOIN PContracts ON A.ContractId = PContracts.ContractId LEFT OUTER"
                 " JOIN PRCenters ON A.CenterId = PRCenters.CenterId INNER JOIN (SELECT"
                 " ArrivalsBody.VehicleNo, ";
    statement += " ArrivalsBody.BagsTypeId, ArrivalsBody.BagsClassId, ArrivalsBody.BagWeight,"
                 " ArrivalsBody.NoOfBags, ArrivalsBody.TareWeight, ArrivalsBody.BagsDeduction,"
                 " ArrivalsBody.OtherDeduction, ArrivalsBody.ScaleDeduction, ";
    statement += " ArrivalsBody.DriverName, ArrivalsBody.BiltyNo, BagsClasses.BagsClass,"
                 " BagsTypes.BagsType, ArrivalsBody.ArrivalId FROM ArrivalsBody INNER JOIN"
                 " BagsClasses ";
    statement +=
        " ON ArrivalsBody.BagsClassId = BagsClasses.BagsClassId INNER JOIN BagsTypes ON"
        " ArrivalsBody.BagsTypeId = BagsTypes.BagsTypeId) AB ON A.ArrivalId = AB.ArrivalId ";
    statement += " WHERE A.ArrivalId =";
    return statement + std::to_string(arrivalNo);
}

} // namespace Quillane
