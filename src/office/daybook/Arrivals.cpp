#include "office/daybook/Arrivals.h"

#include "office/records/Texts.h"
#include "platform/ado/Connection.h"

namespace Quillane::Office {

namespace {

/// In the order of the statement's columns.
enum Column { Day, Id, Party, Commodity, Vehicle, Bags, Gross, Tare, ScaleDeduction, Net };

/// Encloses the wildcards of Like in brackets.
std::string PlainInPattern(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        const bool isWildcard = c == '%' || c == '_' || c == '[';
        plain += isWildcard ? std::string{'[', c, ']'} : std::string(1, c);
    }
    return plain;
}

std::string Quoted(const std::string& moment) {
    return "'" + moment + "'";
}

/// The number is only compared within the day of the position, so that the index on the date is
/// used.
std::string PeriodCondition(const ArrivalFilter& filter, const ArrivalPosition& position) {
    const std::string first = position.moment.empty() ? DateLiteral(filter.from) : position.moment;
    std::string condition = "A.ArrivalDate >= " + Quoted(first) + " And A.ArrivalDate < " +
                            Quoted(DateLiteral(AddDays(filter.to, 1)));
    if (!position.moment.empty())
        condition += " And (A.ArrivalDate > " + Quoted(position.moment) + " Or A.ArrivalID > " +
                     std::to_string(position.id) + ")";
    return condition;
}

std::string Condition(const ArrivalFilter& filter, const ArrivalPosition& position) {
    std::string condition = PeriodCondition(filter, position);
    if (!filter.party.empty())
        condition += " And A.SellerId = " + SqlText(filter.party);
    if (!filter.commodity.empty())
        condition += " And A.CommodityId = " + SqlText(filter.commodity);
    if (!filter.vehicle.empty())
        condition += " And Exists (Select 1 From ArrivalsBody V Where V.ArrivalId = A.ArrivalID "
                     "And V.VehicleNo Like " +
                     SqlText("%" + PlainInPattern(filter.vehicle) + "%") + ")";
    if (filter.onlyInside)
        condition += " And (Select Sum(T.TareWeight) From ArrivalsBody T "
                     "Where T.ArrivalId = A.ArrivalID) = 0";
    return condition;
}

double NumberOrZero(const Value& value) {
    return value.IsNull() ? 0 : value.Number();
}

/// Columns of a fixed length are padded with blanks.
std::string TextOf(const Value& value) {
    std::string text = value.TextOrEmpty();
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

Arrival ArrivalOf(const Recordset& rows) {
    Arrival arrival{.id = rows.Fields(Id).Long(),
                    .day = rows.Fields(Day).AsDate(),
                    .party = TextOf(rows.Fields(Party)),
                    .commodity = TextOf(rows.Fields(Commodity)),
                    .vehicle = TextOf(rows.Fields(Vehicle))};
    const Value tare = rows.Fields(Tare);
    if (tare.IsNull()) // no bag lines
        return arrival;
    const StoredFigures stored{.bags = NumberOrZero(rows.Fields(Bags)),
                               .gross = NumberOrZero(rows.Fields(Gross)),
                               .tare = tare.Number(),
                               .scaleDeduction = NumberOrZero(rows.Fields(ScaleDeduction)),
                               .net = NumberOrZero(rows.Fields(Net))};
    arrival.isInside = stored.tare == 0;
    arrival.figures = arrival.isInside ? FirstFiguresOf(stored) : FiguresOf(stored);
    return arrival;
}

} // namespace

std::string ArrivalsStatement(const ArrivalFilter& filter, const ArrivalPosition& position,
                              int most) {
    return "Select TOP " + std::to_string(most) +
           " A.ArrivalDate, A.ArrivalID, Max(A.SellerId) As SellerId, Max(A.CommodityId) As "
           "CommodityId, Max(B.VehicleNo) As VehicleNo, Sum(B.NoOfBags) As Bags, "
           "Sum(B.NoOfBags * B.BagWeight) As GrossWeight, Sum(B.TareWeight) As TareWeight, "
           "Max(B.ScaleDeduction) As ScaleDeduction, Sum(B.NetWeight) As NetWeight "
           "From Arrivals A Left Outer Join ArrivalsBody B On B.ArrivalId = A.ArrivalID Where " +
           Condition(filter, position) +
           " Group By A.ArrivalDate, A.ArrivalID Order By A.ArrivalDate, A.ArrivalID";
}

std::vector<Arrival> ReadArrivals(Connection& connection, const ArrivalFilter& filter,
                                  ArrivalPosition& position, int most) {
    std::vector<Arrival> arrivals;
    Recordset rows = connection.Execute(ArrivalsStatement(filter, position, most));
    arrivals.reserve(static_cast<std::size_t>(rows.RecordCount()));
    for (; !rows.Eof(); rows.MoveNext())
        arrivals.push_back(ArrivalOf(rows));
    if (!arrivals.empty()) {
        const int last = rows.RecordCount() - 1;
        position = {rows.ValueAt(last, Day).Text(), arrivals.back().id};
    }
    return arrivals;
}

} // namespace Quillane::Office
