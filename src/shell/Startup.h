#pragma once

#include "data/ConfigFile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillane {

/// Sets the name, the version and the icon of the program, which all of its windows and boxes show.
/// Requires: an application, and no window yet.
void NameProgram();

/// The entry procedure. It reads `Config.ini` in the station folder, opens `Con`, upgrades the
/// schema, writes the company name, signs the user in and shows the start screen. It has no error
/// trap: a failure shows the error box of the runtime and ends the process. If no user signs in,
/// the process ends without a message. Requires: the station folder is set, and no screen exists
/// yet.
void Main();

/// Returns the company number, the eighth character of the database name: 1 for Account1. Errors:
/// type mismatch (13) if it is not a digit.
std::int16_t CompanyNumber(std::string_view databaseName);

/// Releases the service objects, in a fixed order, before the process ends.
void ReleaseServices();

} // namespace Quillane
