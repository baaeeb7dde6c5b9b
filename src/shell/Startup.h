#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillane {

/// The entry procedure, run once before any screen exists: finds the database through `Config.ini`
/// in the station's folder, opens `Con`, has the schema brought up to date, writes the company's
/// name, signs the user in and shows the start screen. It has no trap: a failure ends the process
/// through the runtime's box. Nobody signing in ends the process without a message.
void Main();

/// The first delimited field of a text file: leading blanks are skipped; it ends at the first comma
/// or at the end of the line, and one that opens with a double quote runs to the closing quote and
/// loses the quotes. An empty file fails (62), one that is missing (53) or cannot be
/// read (75) too.
std::string ReadFirstField(const std::string& path);

/// The connection string. A station with the role "Client", and one on the operating system of this
/// name in any mix of capitals, signs in as the anonymous user.
std::string ConnectionString(std::string_view osName, std::string_view stationRole,
                             std::string_view configText);

/// The company's number: the eighth character of the database's name. Fails (13) where that is no
/// digit.
std::int16_t CompanyNumber(std::string_view databaseName);

/// Releases the service objects in their order: the last act before the process ends.
void ReleaseServices();

} // namespace Quillane
