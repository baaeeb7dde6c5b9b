#pragma once

#include "office/daybook/Sums.h"
#include "platform/runtime/Date.h"

#include <optional>
#include <string_view>

namespace Quillane::Office {

/// Parses "2026-11-20", "20/11/2026", "today" or "yesterday"; none for any other text.
std::optional<Date> ReadDay(std::string_view text);

/// Parses "day", "party" or "commodity", not case-sensitive; none for any other text.
std::optional<SumsBy> SumsNamed(std::string_view text);

} // namespace Quillane::Office
