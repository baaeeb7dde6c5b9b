#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// For `EXEC sp_fkeys @pktable_name = N'T'`: a query on the schema that returns the foreign keys
/// that refer to T, with the columns of that procedure's result, one row for each key column,
/// ordered by foreign table and key position. Empty for any other text.
std::string ForeignKeyList(std::string_view statement);

} // namespace Quillane
