#pragma once

#include "office/commands/Commands.h"

#include <string>

namespace Quillane::Office {

// The commands that open the file of an embedded database themselves. Failures are thrown. If the
// database is on a server, RunBackup prints a message and succeeds.

ExitCode RunBackup(const std::string& stationFolder, const Request& request, Terminal& terminal);
ExitCode RunRestore(const std::string& stationFolder, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
