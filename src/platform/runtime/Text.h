#pragma once

#include <string>
#include <string_view>

/// Operations on UTF-8 text that treat only ASCII characters specially. They do not depend on the
/// locale.
namespace Quillane {

/// True for the ASCII digits 0 to 9.
constexpr bool IsDigit(char c) {
    return static_cast<unsigned char>(c - '0') <= 9;
}

/// Converts an ASCII capital to its small letter; returns any other character unchanged.
constexpr char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Removes blanks (only blanks) from both ends.
std::string_view Trim(std::string_view text);

/// Removes blanks, tabs and line ends from both ends.
std::string_view TrimWhiteSpace(std::string_view text);

/// Converts ASCII letters to capitals; other characters stay as they are.
std::string UpperCase(std::string_view text);

/// Compares two texts and ignores the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// Doubles each occurrence of a character, as it must be written inside quotes of that character:
/// O'Brien gives O''Brien.
std::string Doubled(std::string_view text, char mark);

} // namespace Quillane
