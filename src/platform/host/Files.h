#pragma once

#include <string>

namespace Quillane {

/// True if a file or folder with this path exists, or if this user may not find out: a file that is
/// inaccessible for the moment must not be created again. Paths are UTF-8.
bool FileExists(const std::string& path);

} // namespace Quillane
