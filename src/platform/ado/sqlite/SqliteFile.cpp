#include "platform/ado/sqlite/SqliteFile.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Paths.h"

#include <cctype>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

bool IsWriteProtected(const fs::file_status& status) {
    constexpr auto anyWriter =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (status.permissions() & anyWriter) == fs::perms::none;
}

} // namespace

std::string ExistingDatabaseFile(const std::string& folder, std::string_view database) {
    if (database.empty())
        FailDatabase("The connection string names no database.");
    const std::string path =
        (folder.empty() ? std::string() : folder + "/") + std::string(database) + ".db";
    std::error_code error;
    const fs::file_status status = fs::status(PathOf(path), error);
    if (!fs::exists(status))
        FailDatabase("The database file " + path + " does not exist.");
    if (!fs::is_regular_file(status))
        FailDatabase(path + " is not a file, so it cannot be opened as a database.");
    if (fs::file_size(PathOf(path), error) == 0)
        FailDatabase("The file " + path + " is empty; it is not a database.");
    if (IsWriteProtected(status))
        FailReadOnly(path);
    return path;
}

void FailReadOnly(const std::string& path) {
    FailDatabase("The database file " + path +
                 ", its folder or its disk is read-only. Ask the administrator of the computer to "
                 "make them writable for this user, then start the program again.");
}

bool HasLogWithContents(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(PathOf(path + "-wal"), error);
    return !error && size > 0;
}

std::string ImmutableUri(const std::string& path) {
    constexpr std::string_view plain = "/-._~:";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || plain.find(c) != std::string_view::npos)
            uri += c;
        else
            uri += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
    return uri + "?immutable=1";
}

} // namespace Quillane
