#pragma once

#include "platform/ado/odbc/OdbcNames.h"
#include "platform/ado/odbc/OdbcRows.h"

#include <string>
#include <vector>

namespace Quillane {

/// The columns of the table's primary key, in key order; empty for a table without one. Names are
/// spelled as the catalogue has them, which need not be as they were declared.
std::vector<std::string> OdbcPrimaryKey(const OdbcHandle& statement, const OdbcTable& table,
                                        OdbcBlock& block);

// On SQL Server the schema of a user may hold a view of the name of a table of dbo. A name without
// a schema then means the view, which has no keys; those of the table are looked up.

/// A query that returns one row if the name is that of a view.
std::string ViewQuestion(std::string_view name);

/// For `EXEC sp_fkeys @pktable_name = N'T'`: the foreign keys of dbo.T where T means a view, no
/// result otherwise. Empty for any other statement.
std::string ForeignKeysOfViewedTable(std::string_view statement);

/// The columns of a table that is named as a statement names it.
std::vector<OdbcColumn> OdbcColumnsOfTable(const OdbcHandle& statement, const std::string& table);

} // namespace Quillane
