#include "platform/ado/Engine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/odbc/OdbcEngine.h"
#include "platform/ado/sqlite/SqliteEngine.h"
#include "platform/runtime/Text.h"

namespace Quillane {

std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection, const SignIn& signIn,
                                   const EmbeddedSupport& support) {
    const std::string server = connection.Get("Server");
    if (EqualIgnoringCase(server, "(embedded)"))
        return std::make_unique<SqliteEngine>(connection.Get("Database"), support);
    if (server.empty() && connection.Get("Servername").empty() && connection.Get("DSN").empty())
        FailDatabase("The connection string names no server.");
    return std::make_unique<OdbcEngine>(connection, signIn);
}

} // namespace Quillane
