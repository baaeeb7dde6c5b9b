#pragma once

#include "platform/ado/Connection.h"

#include <memory>

namespace Quillane {

/// The one connection of the process. The start-up makes and opens it; it is never reopened, and
/// the end of the process closes it.
extern std::unique_ptr<Connection> Con;

} // namespace Quillane
