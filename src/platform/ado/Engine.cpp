#include "platform/ado/Engine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/odbc/OdbcEngine.h"
#include "platform/ado/sqlite/SqliteEngine.h"
#include "platform/runtime/Text.h"

namespace Quillane {

void Engine::ReadBlocks(std::string_view query, const BlockReader& take) {
    ResultSet rows;
    Run(query, {}, rows);
    if (rows.RowCount() > 0)
        take(rows);
}

void Engine::RunForEach(std::string_view statement, const ResultSet& rows) {
    std::vector<Value> values(static_cast<std::size_t>(rows.FieldCount()));
    for (int row = 0; row < rows.RowCount(); ++row) {
        for (int field = 0; field < rows.FieldCount(); ++field)
            values[static_cast<std::size_t>(field)] = rows.At(row, field);
        ResultSet nothing;
        Run(statement, values, nothing);
    }
}

std::unique_ptr<Engine> OpenEngine(const ConnectionAttributes& connection, const SignIn& signIn,
                                   const EmbeddedSupport& support) {
    const std::string server = connection.Get("Server");
    if (EqualIgnoringCase(server, "(embedded)"))
        return std::make_unique<SqliteEngine>(connection.Get("Database"), support);
    if (server.empty() && connection.Get("Servername").empty() && connection.Get("DSN").empty())
        FailDatabase("The connection string names no server.");
    return std::make_unique<OdbcEngine>(connection, signIn);
}

} // namespace Quillane
