#pragma once

#include "platform/ado/Connection.h"

#include <string>

namespace Quillane {

/// The settings of a station for an embedded database in this folder: the SQL functions that the
/// statements call, and the column of password hashes, which only the sign-in may read.
EmbeddedSupport StationSupport(const std::string& folder);

} // namespace Quillane
