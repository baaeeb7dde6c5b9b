#include "signin/ServerSignIn.h"

#include "data/Catalogue.h"
#include "platform/ado/Connection.h"
#include "platform/runtime/Text.h"
#include "signin/PasswordHash.h"

namespace Quillane {

namespace {

void WriteToSession(Connection& connection, const std::string& key, std::string_view value) {
    connection.Execute("EXEC sp_set_session_context @key = N'" + key + "', @value = N'" +
                       Doubled(value, '\'') + "'");
}

} // namespace

bool ServerChecksPasswords(Connection& connection) {
    return connection.DatabaseFile().empty() && TableExists(connection, "SignedInUser");
}

std::optional<StationUser> SignInAtServer(Connection& connection, std::string_view name,
                                          std::string_view password) {
    WriteToSession(connection, "StationProof", "");
    WriteToSession(connection, "StationUser", name);
    const Recordset user = connection.Execute("Select salt From Station.SigningUser");
    const std::string hash = user.Eof() ? "" : HashOf(password, user.Fields("salt").TextOrEmpty());
    if (hash.empty()) {
        SpendPasswordTime(password);
        return std::nullopt;
    }
    WriteToSession(connection, "StationProof", hash);
    const Recordset signedIn =
        connection.Execute("Select username, userlevel From Station.SignedInUser");
    if (signedIn.Eof())
        return std::nullopt;
    return StationUser{signedIn.Fields("username").TextOrEmpty(),
                       signedIn.Fields("userlevel").Long()};
}

} // namespace Quillane
