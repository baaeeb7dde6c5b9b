#pragma once

#include "platform/ado/Connection.h"

#include <string>

namespace Quillane {

/// What a station's connection brings along for an embedded database in this folder: the functions
/// that its statements call, and the passwords' hashes, which the sign-in alone may read.
EmbeddedSupport StationSupport(const std::string& folder);

} // namespace Quillane
