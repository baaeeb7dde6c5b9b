#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// What an indicator has sent (one char is one byte), made fit to be seen in a text box, in UTF-8.
/// Each byte stays one character: those that can be seen stay what they are, bytes above 127 as
/// Latin-1; a control byte becomes its picture (STX, CR and so on, U+2400 to U+2421); what has
/// neither a look nor a picture becomes U+FFFD.
std::string ShownRawText(std::string_view bytes);

} // namespace Quillane
