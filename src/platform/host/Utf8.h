#pragma once

#include <string_view>

namespace Quillane {

/// True if the bytes are valid UTF-8. Text in another encoding must be refused when it is read:
/// otherwise wrong letters would be stored in the database.
bool IsUtf8(std::string_view text);

} // namespace Quillane
