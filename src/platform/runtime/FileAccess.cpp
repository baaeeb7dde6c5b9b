#include "platform/runtime/FileAccess.h"

#include "platform/runtime/Paths.h"

#include <filesystem>
#include <system_error>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Quillane {

namespace {

// Root may change every file, but must not remove the access of the station's user.
bool IsOwnFile([[maybe_unused]] const std::string& path) {
#ifdef _WIN32
    return true;
#else
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && status.st_uid == ::geteuid();
#endif
}

} // namespace

void RemoveAccessOfOthers(const std::string& path) {
    namespace fs = std::filesystem;
    const fs::path file = PathOf(path);
    std::error_code error;
    const fs::perms access = fs::status(file, error).permissions();
    const bool othersRead = (access & fs::perms::others_all) != fs::perms::none;
    const bool othersWrite = (access & fs::perms::others_write) != fs::perms::none;
    if (!error && othersRead && !othersWrite && IsOwnFile(path))
        fs::permissions(file, fs::perms::others_all, fs::perm_options::remove, error);
}

} // namespace Quillane
