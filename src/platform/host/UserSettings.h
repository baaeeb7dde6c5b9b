#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The per-user settings store: a file in the user's own configuration folder, one for each
/// application name. Names and values may hold any characters; an empty name is a failure (5).
/// Writes go through to the disk at once, since the process ends without ceremony, and whole: after
/// a power cut the file holds the old or the new values. A store that cannot be read or written, or
/// that is damaged, is a failure (75) that names the file; it is left as it is.
std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultValue);
void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value);

/// The file behind an application's settings.
std::string SettingsFile(std::string_view application);

} // namespace Quillane
