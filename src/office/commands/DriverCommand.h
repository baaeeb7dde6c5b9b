#pragma once

#include "office/commands/Commands.h"

namespace Quillane::Office {

/// True for "system" and "user", the two scopes of a registration.
bool IsDriverScope(std::string_view scope);

/// Registers FreeTDS with the ODBC driver manager under the name that the station uses: for all
/// users of the computer, or only for this user. A driver that is already registered under this
/// name is kept. Errors: 75 if the registration file cannot be read or written.
ExitCode RegisterDriver(std::string_view scope, Terminal& terminal);

} // namespace Quillane::Office
