#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The per-user settings store: one file for each application name in the configuration folder of
/// the user. Names and values may hold any characters. A write is atomic and reaches the disk
/// before the function returns, because the process may end at any time: after a power failure the
/// file holds the old or the new values. Errors: invalid call (5) for an empty name; path access
/// (75), naming the file, if it is damaged or cannot be read or written. A damaged file is not
/// changed.
std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultValue);
void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value);

/// The path of the file that holds the settings of an application.
std::string SettingsFile(std::string_view application);

} // namespace Quillane
