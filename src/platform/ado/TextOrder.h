#pragma once

#include <string_view>

namespace Quillane {

/// How texts compare in the database and in filters: without regard to case and to trailing blanks.
/// Case is folded for ASCII, Latin, Greek and Cyrillic letters; text is UTF-8. Below 0, 0 or
/// above 0.
int CompareText(std::string_view left, std::string_view right);

} // namespace Quillane
