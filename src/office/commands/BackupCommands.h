#pragma once

#include "office/commands/Commands.h"

#include <string>

namespace Quillane::Office {

// The commands that work on the file of an embedded database, which they open themselves. Failures
// are thrown. For a database on a server the backup says who makes it there, and is done.

ExitCode RunBackup(const std::string& stationFolder, const Request& request, Terminal& terminal);
ExitCode RunRestore(const std::string& stationFolder, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
