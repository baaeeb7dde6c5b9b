#include "platform/host/Files.h"

#include <filesystem>
#include <system_error>

namespace Quillane {

bool FileExists(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path native(std::u8string(path.begin(), path.end()));
    return std::filesystem::status(native, ignored).type() != std::filesystem::file_type::not_found;
}

} // namespace Quillane
