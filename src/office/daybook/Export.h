#pragma once

#include "office/daybook/DayBook.h"

#include <functional>
#include <string>
#include <string_view>

namespace Quillane {
class Report;
}

/// Exports a day book to a file. Each function reads the day book to its end while it writes, so
/// that the memory does not grow with the arrivals.
namespace Quillane::Office {

/// Receives the next piece of a text file.
using TextSink = std::function<void(std::string_view)>;
/// Called after each page; returns false to cancel.
using GoOn = std::function<bool(const DayBook&)>;

/// Writes a text file piece by piece. If `write` returns false, or writing fails (75), an existing
/// file with this name is not changed.
bool WriteTextFile(const std::string& path, const std::function<bool(const TextSink&)>& write);

/// Writes all pages of a report as PDF. After a failure (75) an existing file is not changed.
void WritePdf(const Report& report, const std::string& path);

/// Writes a line for each arrival: RFC 4180, UTF-8. Returns false if it was cancelled.
bool WriteArrivalsCsv(DayBook& book, const TextSink& sink, const GoOn& goOn);

/// Writes a line for each day, party or commodity.
bool WriteSumsCsv(DayBook& book, SumsBy by, const TextSink& sink, const GoOn& goOn);

/// Writes a workbook with one sheet for the arrivals and one for each kind of sum. If it is
/// cancelled (false) or fails (75), an existing file is not changed. Errors: also if a sheet has
/// too few rows for the arrivals.
bool WriteWorkbook(DayBook& book, const std::string& path, const GoOn& goOn);

} // namespace Quillane::Office
