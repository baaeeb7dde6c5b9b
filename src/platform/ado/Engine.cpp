#include "platform/ado/Engine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/SqliteEngine.h"
#include "platform/runtime/Numbers.h"

namespace Quillane {

std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection, const SignIn&,
                                   const EmbeddedSupport& support) {
    const std::string server = connection.Get("Server");
    if (EqualIgnoringCase(server, "(embedded)"))
        return std::make_unique<SqliteEngine>(connection.Get("Database"), support);
    if (server.empty())
        FailDatabase("The connection string names no server.");
    FailDatabase("The server " + server +
                 " cannot be used: this program works with the embedded database only.");
}

} // namespace Quillane
