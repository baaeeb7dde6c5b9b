#include "platform/host/Files.h"

#include "platform/runtime/Paths.h"

#include <filesystem>
#include <system_error>

namespace Quillane {

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::status(PathOf(path), ignored).type() !=
           std::filesystem::file_type::not_found;
}

} // namespace Quillane
