#pragma once

#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// Whether the database has a table of this name, case aside.
bool TableExists(Connection& connection, std::string_view table);

} // namespace Quillane
