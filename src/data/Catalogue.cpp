#include "data/Catalogue.h"

#include "platform/ado/Connection.h"

namespace Quillane {

bool TableExists(Connection& connection, std::string_view table) {
    const std::string name(table);
    const std::string query =
        connection.DatabaseFile().empty()
            ? "Select Count(*) From INFORMATION_SCHEMA.TABLES Where TABLE_NAME = '" + name + "'"
            : "Select Count(*) From sqlite_master Where type = 'table' And lower(name) = lower('" +
                  name + "')";
    return connection.Execute(query).Fields(0).Number() > 0;
}

} // namespace Quillane
