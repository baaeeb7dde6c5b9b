#pragma once

#include "weighment/WeighmentFixture.h"

namespace Quillane::Testing {

// Lines that the traces of several procedures share.

inline const std::string PortRows = "Select * from PortSettings";
inline const std::string NextId = "Select IsNull(Max(ArrivalID),0)+1 From Arrivals";
inline const std::string Opens200 = "Line opens, timer 200 ms";
inline const std::string Opens300 = "Line opens, timer 300 ms";
inline const std::string BodyDelete = "DELETE FROM arrivalsbody WHERE LineId = ?";
inline const std::string HeaderInsert =
    "INSERT INTO Arrivals (ArrivalID, ArrivalDate, PermitNo, CenterId, CommodityId, SellerId, "
    "ContractId, IsPosted) VALUES (?, ?, ?, ?, ?, ?, ?, ?)";
inline const std::string HeaderUpdate =
    "UPDATE Arrivals SET ArrivalDate = ?, PermitNo = ?, CenterId = ?, CommodityId = ?, SellerId = "
    "?, ContractId = ?, IsPosted = ? WHERE ArrivalID = ?";
inline const std::string BodyInsert =
    "INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
    "VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight, "
    "DriverName, BiltyNo, VehicleNoText) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
inline const std::string PrintQuestion =
    "Box \"Confirmation\" [question, Yes/No*] Do you want to print?";
inline const std::string OverflowLine = "Box \"Quillane\" [critical, OK] Overflow";
inline const std::string NullLine = "Box \"Quillane\" [critical, OK] Invalid use of Null";

inline std::string PostedRule(const std::string& id) {
    return "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = " +
           id;
}

/// The statements of leaving the box of the id.
inline std::string LeavingCount(const std::string& id) {
    return "Select count(*) From Arrivals where ArrivalID = " + id;
}

inline Lines NetBecomes(const std::string& net, const std::string& mounds) {
    return {"TxtNetWeight = '" + net + "'", "TxtMoundKgs = '" + mounds + "'"};
}

/// The writes of blanking a screen without weights; `manual` is the lines for the manual weight.
inline Lines BlankingAnEmptyScreen(const Lines& manual = {}) {
    const Lines nothing = NetBecomes("0", "0-0");
    return Joined(
        {{"TxtDeduction = ''"},
         nothing,
         {"TxtBuiltyNo = ''", "TxtNetWeight = ''", "TxtMoundKgs = ''", "TxtScaleDeductKg = ''",
          "TxtVehicleNo = ''", "TxtDriverName = ''", "TxtKandaDeduction = ''"},
         nothing,
         manual,
         {"TxtShortage = ''"},
         nothing,
         {"TxtWeight = ''", "TxtHeapName = ''", "TxtHeapNo = ''", "TxtBagsWeight = ''",
          "TxtGrossWeight = ''"},
         nothing,
         {"TxtTareWeight = ''", "TxtInitialGrossWeight = ''", "TxtArrivalId = ''"}});
}

/// The writes of blanking a screen with weights: blanking the rate computes the gross again and
/// leaves its zero in the scale deduction. `finalized` is the lines for the check box.
inline Lines BlankingAScreenOf(const std::string& gross, const std::string& mounds,
                               const Lines& finalized = {}) {
    const Lines net = NetBecomes(gross, mounds);
    return Joined(
        {{"TxtDeduction = ''"},
         net,
         {"TxtBuiltyNo = ''", "TxtNetWeight = ''", "TxtMoundKgs = ''", "TxtScaleDeductKg = ''",
          "TxtVehicleNo = ''", "TxtDriverName = ''", "TxtKandaDeduction = ''",
          "TxtScaleDeductKg = '0'", "TxtGrossWeight = '" + gross + "'"},
         net,
         net,
         {"TxtShortage = ''"},
         net,
         {"TxtWeight = ''"},
         finalized,
         {"TxtHeapName = ''", "TxtHeapNo = ''", "TxtBagsWeight = ''", "TxtGrossWeight = ''"},
         NetBecomes("0", "0-0"),
         {"TxtTareWeight = ''", "TxtInitialGrossWeight = ''", "TxtArrivalId = ''"}});
}

/// The operator's move from one control to the next.
inline Lines Moved(const std::string& from, const std::string& to) {
    return {"Validate " + from, "LostFocus " + from, "GotFocus " + to};
}

} // namespace Quillane::Testing
