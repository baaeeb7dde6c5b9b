#pragma once

#include "office/commands/Commands.h"

#include <string>

namespace Quillane::Office {

/// Moves the station to a database on SQL Server: tries the server out, asks for a yes, and moves.
/// Failures are thrown.
ExitCode RunMove(const std::string& stationFolder, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
