#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// Turns the few forms of T-SQL that SQLite's parser refuses into its own: `IsNull(` becomes
/// `IfNull(`, `dbo.` is dropped, `TOP n` becomes `LIMIT n` at the end of its own select, `N'x'`
/// becomes `'x'`, and `EXEC sp_fkeys @pktable_name = N'T'` becomes a select from the schema's
/// foreign keys. Strings, quoted names and comments are left as they are, and so is every form that
/// it does not know: SQLite then says what it makes of it.
std::string FromTSql(std::string_view statement);

} // namespace Quillane
