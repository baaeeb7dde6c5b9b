#pragma once

#include <string>
#include <string_view>

namespace Quillane {

class Connection;

/// True if the database has a table with this name. Names are not case-sensitive.
/// Requires: `table` holds no apostrophe.
bool TableExists(Connection& connection, std::string_view table);

} // namespace Quillane
