#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// What an indicator has sent (one char is one byte), made fit to be seen in a text box, in UTF-8.
/// A byte that can be seen stays what it is, above 127 as Latin-1. Of the others, which a box would
/// drop or show as a blank, the control characters are written by their names, as the indicators'
/// manuals have them, <STX> or <CR>, and the rest by their codes: <x80>.
std::string ShownRawText(std::string_view bytes);

} // namespace Quillane
