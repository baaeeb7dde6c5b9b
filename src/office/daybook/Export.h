#pragma once

#include "office/daybook/DayBook.h"

#include <functional>
#include <string>
#include <string_view>

namespace Quillane {
class Report;
}

/// Day books as files for other programs. Each reads the day book to its end while it writes, so
/// that memory does not grow with the arrivals.
namespace Quillane::Office {

/// Takes the next piece of a text file.
using TextSink = std::function<void(std::string_view)>;
/// Asked after each page; false breaks off.
using GoOn = std::function<bool(const DayBook&)>;

/// Writes a text file piece by piece. It takes its name when it is whole: where `write` breaks off
/// (false), as where the disk refuses it (75), what was there is still there.
bool WriteTextFile(const std::string& path, const std::function<bool(const TextSink&)>& write);

/// All pages of a report. What was there is still there after a failure (75).
void WritePdf(const Report& report, const std::string& path);

/// A line for each arrival, by RFC 4180 in UTF-8. False where it was broken off.
bool WriteArrivalsCsv(DayBook& book, const TextSink& sink, const GoOn& goOn);

/// A line for each day, party or commodity.
bool WriteSumsCsv(DayBook& book, SumsBy by, const TextSink& sink, const GoOn& goOn);

/// A workbook of the arrivals and of the sums by day, party and commodity, a sheet for each. It
/// takes its name when it is whole: broken off (false) or failed (75), what was there is still
/// there. More arrivals than a sheet has rows fail.
bool WriteWorkbook(DayBook& book, const std::string& path, const GoOn& goOn);

} // namespace Quillane::Office
