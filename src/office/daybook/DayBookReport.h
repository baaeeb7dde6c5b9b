#pragma once

#include "office/daybook/DayBook.h"
#include "platform/report/Report.h"

#include <string>

namespace Quillane::Office {

/// What of a day book is printed, in this order.
struct PrintedParts {
    bool arrivals = true;
    bool byDay = true;
    bool byParty = true;
    bool byCommodity = true;
    bool picture = true;
};

/// A day book on paper, A4 on its side: tables of arrivals and of sums, each ended by its sum, and
/// the picture. The user that prints it is the report's `UserName`.
class DayBookReport : public Report {
public:
    /// A list of more arrivals than this is not for paper: a line says so in its place.
    static constexpr int MostArrivals = 2'000;

    /// Reads the arrivals of a complete day book again; the report keeps nothing of it.
    DayBookReport(const DayBook& book, const PrintedParts& parts, const std::string& company);

    std::string FileName() const override;

private:
    std::string fileName_;
};

/// "Day book 2026-11-01 to 2026-11-22", without an ending.
std::string FileNameOf(const ArrivalFilter& filter);
/// "22/11/2026", or "01/11/2026 to 22/11/2026".
std::string PeriodText(const ArrivalFilter& filter);
/// What the filter narrows a day book to: "Wheat, vehicle LEA"; empty where it holds all arrivals.
std::string NarrowedText(const DayBook& book);

} // namespace Quillane::Office
