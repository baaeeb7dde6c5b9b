#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// Translates the T-SQL that SQLite does not accept: `IsNull(` becomes `IfNull(`, `dbo.` is
/// removed, `TOP n` becomes `LIMIT n` at the end of its select, `N'x'` becomes `'x'`, and `EXEC
/// sp_fkeys @pktable_name = N'T'` becomes a query on the schema's foreign keys. Strings, quoted
/// names, comments and everything else are not changed, so that SQLite reports what it does not
/// accept.
std::string FromTSql(std::string_view statement);

} // namespace Quillane
