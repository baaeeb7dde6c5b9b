#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Texts of the office: all are UTF-8.
namespace Quillane::Office {

/// A text as a statement holds it, apostrophes doubled: N'O''Brien'.
std::string SqlText(std::string_view text);

/// Equal for two texts that a database takes for the same key or name: case and blanks at the end
/// do not count.
std::string Folded(std::string_view text);

/// The length as SQL Server counts it, in UTF-16 units.
int Utf16Length(std::string_view text);

/// At most 60 bytes of a text, with three points where there is more: a cell may hold a book.
std::string Shortened(std::string_view text);

/// Without the white space at both ends.
std::string Trimmed(std::string_view text);

/// Holds a line break, a tab or another control character, or one that breaks or turns a line
/// without being seen.
bool HoldsControlCharacter(std::string_view text);

/// The number that a text of digits alone gives; none below 1 or beyond 32 bits.
std::optional<std::int32_t> PositiveNumber(std::string_view text);

/// "1 row", "2 rows".
std::string Counted(long count, std::string_view one, std::string_view several);

} // namespace Quillane::Office
