#pragma once

#include "data/ConfigFile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillane {

/// The entry procedure, run once before any screen exists: finds the database through `Config.ini`
/// in the station's folder, opens `Con`, has the schema brought up to date, writes the company's
/// name, signs the user in and shows the start screen. It has no trap: a failure ends the process
/// through the runtime's box. Nobody signing in ends the process without a message.
void Main();

/// The company's number: the eighth character of the database's name. Fails (13) where that is no
/// digit.
std::int16_t CompanyNumber(std::string_view databaseName);

/// Releases the service objects in their order: the last act before the process ends.
void ReleaseServices();

} // namespace Quillane
