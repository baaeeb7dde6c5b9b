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

/// The columns of a table that is named as a statement names it.
std::vector<OdbcColumn> OdbcColumnsOfTable(const OdbcHandle& statement, const std::string& table);

} // namespace Quillane
