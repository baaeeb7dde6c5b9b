// The day book of one day and of a year, read to its end, with its sums by day, party and
// commodity. The reference steps the statements that return the same values raw. The memory is
// measured too. Each size of the database is measured in a separate process:
//
//     DayBookBench [arrivals ...]      default: 10000 100000 1000000
//
// The limit of the ratios is 1.3. The memory of a year must be that of a page and the sums and not
// depend on the number of arrivals.

#include "EachSize.h"
#include "ManyArrivals.h"
#include "Memory.h"
#include "RawSession.h"
#include "SideBySide.h"
#include "data/Con.h"
#include "office/daybook/DayBook.h"
#include "office/daybook/TableModels.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace Quillane;
using namespace Quillane::Office;

constexpr double limit = 1.3;

ArrivalFilter Year() {
    return {.from = AddDays(Today(), -365), .to = Today()};
}

std::shared_ptr<DayBook> ReadWhole(const ArrivalFilter& filter) {
    auto book = std::make_shared<DayBook>(*Con, filter);
    while (book->ReadOn()) {
    }
    for (const SumsBy by : {SumsBy::Day, SumsBy::Party, SumsBy::Commodity})
        book->Sums().By(by, book->Names());
    return book;
}

/// The arrivals with their figures, all in one statement.
std::string RawArrivals(const ArrivalFilter& filter) {
    return RawSession::Statement(ArrivalsStatement(filter, {}, 100'000'000));
}

/// Only the sums by one column, without the rounding of each arrival.
std::string RawSums(const ArrivalFilter& filter, const std::string& by) {
    return "Select " + by +
           ", Count(Distinct A.ArrivalID), Sum(B.NoOfBags), Sum(B.NoOfBags * B.BagWeight), "
           "Sum(B.TareWeight), Sum(B.OtherDeduction), Sum(B.NetWeight) From Arrivals A Inner Join "
           "ArrivalsBody B On B.ArrivalId = A.ArrivalID Where A.ArrivalDate >= '" +
           DateLiteral(filter.from) + "' And A.ArrivalDate <= '" + DateLiteral(filter.to) +
           "' Group By " + by;
}

void MeasurePeriod(const char* what, const ArrivalFilter& filter, const RawSession& raw,
                   int turns) {
    const std::string arrivals = RawArrivals(filter);
    const long rows = raw.Step(arrivals.c_str());
    if (ReadWhole(filter)->Count() != rows)
        throw std::runtime_error("the day book differs from the result of its statement");
    const SideBySide byArrival(turns, {{}, [&] { ReadWhole(filter); }},
                               {{}, [&] { raw.Step(arrivals.c_str()); }});
    PrintLine(std::string(what) +
                  ", arrivals and all sums, compared with the statement of the arrivals",
              rows, byArrival, limit);
    const std::string statements[] = {RawSums(filter, "A.ArrivalDate"),
                                      RawSums(filter, "A.SellerId"),
                                      RawSums(filter, "A.CommodityId")};
    const SideBySide bySums(turns, {{}, [&] { ReadWhole(filter); }},
                            {{}, [&] {
                                 for (const std::string& each : statements)
                                     raw.Step(each.c_str());
                             }});
    PrintLine(std::string(what) + ", the same, compared with three statements of sums", rows,
              bySums, limit);
}

/// Reads every row of the year once, as scrolling through the table does.
void MeasureMemory(const char* what, const ArrivalFilter& filter) {
    std::shared_ptr<DayBook> book;
    ArrivalsModel model;
    const MemoryGrowth growth([&] {
        book = ReadWhole(filter);
        model.Show(book);
        for (int row = 0; row < model.rowCount(); ++row)
            model.data(model.index(row, 0), Qt::DisplayRole);
    });
    std::printf("memory, %s: %d arrivals, heap %.2f MB, resident %.2f MB, peak %.2f MB; %zu "
                "rows in memory\n",
                what, book->Count(), growth.heap / 1e6, growth.resident / 1e6, growth.peak / 1e6,
                model.RowsHeld());
}

void Measure(const ManyArrivals& database) {
    const ArrivalFilter day{.from = Today(), .to = Today()};
    const ArrivalFilter all{.from = AddDays(Today(), -9 * 366), .to = Today()};
    MeasureMemory("a day", day);
    MeasureMemory("a year", Year());
    MeasureMemory("all", all);
    const RawSession raw(database);
    constexpr int many = 51;
    constexpr int few = 9;
    const Turns opened = Repeated(many, {{}, [&] { ReadWhole(day); }});
    std::printf("a day, arrivals and sums: %.2f ms of processor time\n", opened.Median());
    PrintHeading("processor time, milliseconds");
    MeasurePeriod("A year", Year(), raw, database.Arrivals() > 200'000 ? few : many);
}

} // namespace

int main(int argc, char** argv) {
    return MeasureEachSize(argc, argv, Measure);
}
