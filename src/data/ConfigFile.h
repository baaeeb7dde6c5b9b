#pragma once

#include <string>
#include <string_view>

/// Reads `Config.ini` and composes the connection string of the station from it.
namespace Quillane {

/// Reads the first field of the first line of a text file. Leading blanks are skipped. The field
/// ends at the first comma or at the end of the line; a field in double quotes ends at the closing
/// quote, and the quotes are removed. Errors: file not found (53), input past end (62) if the file
/// is empty, path access (75) if it cannot be read.
std::string ReadFirstField(const std::string& path);

/// Composes the connection string of the station. A station with the role "Client", and one that
/// runs on "Microsoft Windows XP" (not case-sensitive), signs in as the user "anonymous".
std::string StationConnectionString(std::string_view osName, std::string_view stationRole,
                                    std::string_view configText);

} // namespace Quillane
