#pragma once

#include "platform/ado/Connection.h"

#include <memory>

namespace Quillane {

/// The only database connection of the process. `Main` creates and opens it. It is never reopened;
/// the end of the process closes it.
extern std::unique_ptr<Connection> Con;

} // namespace Quillane
