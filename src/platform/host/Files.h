#pragma once

#include <string>

namespace Quillane {

/// True where something has this name, also where this user may not look at it: nothing must be
/// made in the place of what is only out of reach for the moment. Paths are UTF-8.
bool FileExists(const std::string& path);

} // namespace Quillane
