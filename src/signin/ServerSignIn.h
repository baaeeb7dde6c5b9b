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

/// Whether the database shows no hashes, but checks them: one on SQL Server that has the views of
/// the sign-in.
bool ServerChecksPasswords(Connection& connection);

/// Signs in at such a database, which knows from then on as whom the connection's session works.
/// None where the name or the password is wrong; nobody is then signed in. A name that nobody has
/// takes as long as a wrong password.
std::optional<StationUser> SignInAtServer(Connection& connection, std::string_view name,
                                          std::string_view password);

} // namespace Quillane
