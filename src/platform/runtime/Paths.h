#pragma once

#include <filesystem>
#include <string_view>

namespace Quillane {

/// The path that a UTF-8 text names, on every system.
inline std::filesystem::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

} // namespace Quillane
