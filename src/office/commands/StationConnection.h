#pragma once

#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// Whoever signs in to the database server in place of the sign-in in `Config.ini`.
struct ServerSignIn {
    std::string name{}; ///< empty: as Config.ini says
    std::string password{};
};

/// Opens the database that `Config.ini` in the station's folder names. Fails where the station has
/// not been set up, and where the database's schema is not the one of this program: a start of the
/// station brings an older one up to date.
void OpenStationDatabase(Connection& connection, const std::string& folder,
                         const ServerSignIn& signIn);

/// The file of the database that `Config.ini` names, which may be missing; empty where the database
/// is on a server. A station that has not been set up will look for its first one there.
std::string EmbeddedDatabaseOf(const std::string& folder);

/// A connection string's part without the attributes of a sign-in.
std::string WithoutSignIn(std::string_view fragment);

} // namespace Quillane::Office
