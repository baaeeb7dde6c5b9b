#pragma once

#include <string>
#include <string_view>

/// The file `Config.ini` and what the connection makes of it.
namespace Quillane {

/// The first delimited field of a text file: leading blanks are skipped; it ends at the first comma
/// or at the end of the line, and one that opens with a double quote runs to the closing quote and
/// loses the quotes. An empty file fails (62), one that is missing (53) or cannot be
/// read (75) too.
std::string ReadFirstField(const std::string& path);

/// The connection string. A station with the role "Client", and one on the operating system of this
/// name in any mix of capitals, signs in as the anonymous user.
std::string ConnectionString(std::string_view osName, std::string_view stationRole,
                             std::string_view configText);

} // namespace Quillane
