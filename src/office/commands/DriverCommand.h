#pragma once

#include "office/commands/Commands.h"

namespace Quillane::Office {

/// Whether a text names a place where a driver can be registered: "system" or "user".
bool IsDriverPlace(std::string_view place);

/// Registers FreeTDS with the ODBC driver manager under the name that the station looks for: for
/// all users of the computer, or for this user alone. A driver that is registered under the name
/// stays. Fails (75) where the file of the place cannot be read or written.
ExitCode RegisterDriver(std::string_view place, Terminal& terminal);

} // namespace Quillane::Office
