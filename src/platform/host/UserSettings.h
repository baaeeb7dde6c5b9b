#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The per-user settings store. Writes go through to the disk at once, since the process ends
/// without ceremony. A store that cannot be read or written is a failure.
std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultValue);
void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value);

} // namespace Quillane
