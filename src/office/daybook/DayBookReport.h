#pragma once

#include "office/daybook/DayBook.h"
#include "platform/report/Report.h"

#include <string>

namespace Quillane::Office {

/// The tables to print, in this order.
struct PrintedParts {
    bool arrivals = true;
    bool byDay = true;
    bool byParty = true;
    bool byCommodity = true;
    bool picture = true;
};

/// A day book on paper, A4 landscape: tables of arrivals and of sums, each with its total, and the
/// picture. `UserName` of the report is the user who prints it.
class DayBookReport : public Report {
public:
    /// A longer list of arrivals is not printed; a line states this instead.
    static constexpr int MostArrivals = 2'000;

    /// Reads the arrivals of a complete day book again; the report does not keep a reference to it.
    DayBookReport(const DayBook& book, const PrintedParts& parts, const std::string& company);

    std::string FileName() const override;

private:
    std::string fileName_;
};

/// A file name without extension: "Day book 2026-11-01 to 2026-11-22".
std::string FileNameOf(const ArrivalFilter& filter);
/// "22/11/2026", or "01/11/2026 to 22/11/2026".
std::string PeriodText(const ArrivalFilter& filter);
/// Describes the filter: "Wheat, vehicle LEA"; empty if it selects all arrivals.
std::string NarrowedText(const DayBook& book);

} // namespace Quillane::Office
