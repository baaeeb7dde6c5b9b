#pragma once

#include "office/commands/Commands.h"

#include <string>

namespace Quillane::Office {

/// Moves the station to a database on SQL Server: tests the server, asks for confirmation, and
/// moves the rows. Failures are thrown.
ExitCode RunMove(const std::string& stationFolder, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
