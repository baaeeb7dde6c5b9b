#pragma once

#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// The file of an embedded database; empty on a database server.
std::string EmbeddedFileOf(Connection& connection);

/// Whether the database has a table of this name, case aside.
bool TableExists(Connection& connection, std::string_view table);

} // namespace Quillane
