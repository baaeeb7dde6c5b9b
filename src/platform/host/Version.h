#pragma once

#include <string_view>

namespace Quillane {

/// The version of this program, such as "1.1.0". It is set in the top-level CMakeLists.txt.
std::string_view QuillaneVersion();

} // namespace Quillane
