#pragma once

#include <string_view>

namespace Quillane {

/// True if the bytes are valid UTF-8. Text in another encoding must be refused when it is read: in
/// the database it would be stored as wrong letters.
bool IsUtf8(std::string_view text);

} // namespace Quillane
