#pragma once

#include "platform/ado/LockWait.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A login for the database server that replaces the one in `Config.ini`.
struct ServerSignIn {
    std::string name{}; ///< empty: the login in Config.ini
    std::string password{};
};

/// Opens the database of `Config.ini` in the station folder. Errors: a failure if the station has
/// not been set up, or if the schema version of the database is not that of this program.
/// `waitForLock` shows the wait for the lock of an embedded database; if it is empty, nothing is
/// shown.
void OpenStationDatabase(Connection& connection, const std::string& folder,
                         const ServerSignIn& signIn,
                         std::function<std::unique_ptr<LockWait>()> waitForLock = {});

/// Returns the file of the embedded database in `Config.ini`, which may not exist; empty if the
/// database is on a server. Without a `Config.ini` it is the default file of the set-up.
std::string EmbeddedDatabaseOf(const std::string& folder);

/// Removes the attributes of a login from a part of a connection string.
std::string WithoutSignIn(std::string_view fragment);

} // namespace Quillane::Office
