#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// For `EXEC sp_fkeys @pktable_name = N'T'`: a select from the embedded schema that gives the
/// foreign keys on T, one row for each key column, with the columns of that catalogue procedure, in
/// the order of foreign table and key position. Empty for any other text.
std::string ForeignKeyList(std::string_view statement);

} // namespace Quillane
