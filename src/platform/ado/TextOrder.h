#pragma once

#include <string_view>

namespace Quillane {

/// Compares texts as the database and filters do: without regard to case and to trailing blanks.
/// Case is folded for ASCII, Latin, Greek and Cyrillic letters; text is UTF-8. The result is below
/// 0, 0 or above 0.
int CompareText(std::string_view left, std::string_view right);

} // namespace Quillane
