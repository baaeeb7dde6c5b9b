#pragma once

#include "platform/ado/Connection.h"

#include <sstream>
#include <string>
#include <string_view>

namespace Quillane {

/// Runs a statement whose parts are the arguments. Numbers keep all their digits.
template <typename... Pieces>
void RunPieces(Connection& connection, const Pieces&... pieces) {
    std::ostringstream statement;
    statement.precision(17);
    (statement << ... << pieces);
    connection.Execute(statement.str());
}

/// A stored bag line; weights in kilograms. The defaults are those of a usual line.
struct LineRow {
    int bagsClass = 1;
    int bagsType = 1;
    double bags = 10;
    double bagWeight = 81.17;
    double tare = 0;
    double scaleDeduction = 0;
    double otherDeduction = 0;
    double net = 0;
    std::string vehicle{};
    std::string driver = "Ghulam Rasool";
    std::string bilty = "B-7781";
};

/// Stores the header of an arrival on a day, such as 2026-11-20.
inline void StoreArrival(Connection& connection, int number, std::string_view day, int commodity,
                         std::string_view party) {
    RunPieces(connection,
              "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Values (",
              number, ", '", day, "T00:00:00', ", commodity, ", '", party, "')");
}

inline void StoreLine(Connection& connection, int arrival, int commodity, const LineRow& line) {
    RunPieces(connection,
              "Insert Into ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
              "NoOfBags, VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
              "OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText) Values (",
              arrival, ", ", commodity, ", ", line.bagsClass, ", ", line.bagsType, ", ", line.bags,
              ", '", line.vehicle, "', ", line.tare, ", ", line.scaleDeduction, ", ",
              line.bagWeight, ", 0, ", line.otherDeduction, ", ", line.net, ", '", line.driver,
              "', '", line.bilty, "', '')");
}

} // namespace Quillane
