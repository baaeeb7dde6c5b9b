#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace Quillane {

/// A calendar date without a time of day.
using Date = std::chrono::year_month_day;

/// The current date of the local clock, or of the clock that `SetClock` has set.
Date Today();

/// Replaces the clock that `Today` reads. An empty function restores the local clock.
void SetClock(std::function<Date()> clock);

Date AddDays(Date date, int days);

/// Formats a date as YYYY-MM-DDT00:00:00. SQL Server reads this form alike under every language
/// setting.
std::string DateLiteral(Date date);

/// Formats a date as dd/MM/yyyy, the form that the operator sees.
std::string ShownDate(Date date);

/// Reads the date from a text that begins with YYYY-MM-DD and ignores the rest, such as a time.
/// Errors: type mismatch (13) for any other text and for a date that does not exist.
Date ParseDate(std::string_view text);

} // namespace Quillane
