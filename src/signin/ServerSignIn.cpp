#include "signin/ServerSignIn.h"

#include "data/Catalogue.h"
#include "platform/ado/Connection.h"
#include "signin/PasswordHash.h"

namespace Quillane {

namespace {

void NameInSession(Connection& connection, const std::string& key, std::string_view value) {
    std::string text;
    for (const char character : value)
        text.append(character == '\'' ? 2 : 1, character);
    connection.Execute("EXEC sp_set_session_context @key = N'" + key + "', @value = N'" + text +
                       "'");
}

} // namespace

bool ServerChecksPasswords(Connection& connection) {
    return connection.DatabaseFile().empty() && TableExists(connection, "SignedInUser");
}

std::optional<StationUser> SignInAtServer(Connection& connection, std::string_view name,
                                          std::string_view password) {
    NameInSession(connection, "StationProof", "");
    NameInSession(connection, "StationUser", name);
    const Recordset user = connection.Execute("Select salt From Station.SigningUser");
    const std::string hash = user.Eof() ? "" : HashOf(password, user.Fields("salt").TextOrEmpty());
    if (hash.empty()) {
        SpendPasswordTime(password);
        return std::nullopt;
    }
    NameInSession(connection, "StationProof", hash);
    const Recordset signedIn =
        connection.Execute("Select username, userlevel From Station.SignedInUser");
    if (signedIn.Eof())
        return std::nullopt;
    return StationUser{signedIn.Fields("username").TextOrEmpty(),
                       signedIn.Fields("userlevel").Long()};
}

} // namespace Quillane
