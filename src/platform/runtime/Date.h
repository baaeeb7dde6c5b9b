#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace Quillane {

/// A day of the calendar, with no time of day.
using Date = std::chrono::year_month_day;

/// Today by the local clock, or by the clock that `SetClock` gave.
Date Today();

/// Replaces the clock behind `Today`; an empty function brings the local clock back.
void SetClock(std::function<Date()> clock);

Date AddDays(Date date, int days);

/// YYYY-MM-DDT00:00:00, the one form that every language setting of SQL Server reads the same.
std::string DateLiteral(Date date);

/// dd/MM/yyyy, as dates are shown to the operator.
std::string ShownDate(Date date);

/// Reads the date part of a text that begins YYYY-MM-DD; a time behind it is ignored. Anything
/// else is a type mismatch (13).
Date ParseDate(std::string_view text);

} // namespace Quillane
