#pragma once

#include "office/commands/Commands.h"

namespace Quillane::Office {

/// Writes the day book of `--day-book`; failures are thrown.
ExitCode WriteDayBook(Connection& connection, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
