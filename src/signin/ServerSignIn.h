#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// A user who has signed in.
struct StationUser {
    std::string name;
    std::int32_t level = 0;
};

/// True if the database checks passwords itself and shows no hashes: on SQL Server, with the views
/// of the sign-in.
bool ServerChecksPasswords(Connection& connection);

/// Signs in to such a database. Its triggers then know the user of the connection's session.
/// None if the name or the password is wrong; no user is then signed in. An unknown name takes as
/// long as a wrong password.
std::optional<StationUser> SignInAtServer(Connection& connection, std::string_view name,
                                          std::string_view password);

} // namespace Quillane
