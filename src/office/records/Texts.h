#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Text functions of the office. All texts are UTF-8.
namespace Quillane::Office {

/// Formats a text as a literal of a statement: N'O''Brien'.
std::string SqlText(std::string_view text);

/// Returns the form in which keys and names are compared. Two texts that a database considers equal
/// have the same form: case and blanks at the end are ignored.
std::string Folded(std::string_view text);

/// The length in UTF-16 units, as SQL Server counts it.
int Utf16Length(std::string_view text);

/// The first 60 bytes of a text, followed by "..." if it is longer. For messages that quote a cell.
std::string Shortened(std::string_view text);

/// Removes white space from both ends.
std::string Trimmed(std::string_view text);

/// True if the text contains a line break, a tab or another control character, or an invisible
/// character that breaks a line or changes the writing direction.
bool HoldsControlCharacter(std::string_view text);

/// Reads a whole number from a text of digits; none if it is below 1 or beyond 32 bits.
std::optional<std::int32_t> PositiveNumber(std::string_view text);

/// "1 row", "2 rows".
std::string Counted(long count, std::string_view one, std::string_view several);

} // namespace Quillane::Office
