#pragma once

#include <string_view>

/// How texts compare in the database and in filters: without regard to case and to trailing
/// blanks. Case is folded for ASCII, Latin, Greek and Cyrillic letters; text is UTF-8.
namespace Quillane {

/// Below 0, 0 or above 0.
int CompareText(std::string_view left, std::string_view right);

/// The pattern test of `Like`: % stands for any run of characters, _ for one, [abc], [a-f] and
/// [^abc] for one of a set. `escape` makes the character behind it plain; 0 means none.
bool MatchesLike(std::string_view text, std::string_view pattern, char32_t escape = 0);

} // namespace Quillane
