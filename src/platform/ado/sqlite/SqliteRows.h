#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/Value.h"

#include <span>

struct sqlite3_stmt;

namespace Quillane {

/// Binds the values to the statement's parameters, in their order. A date is bound as the text
/// YYYY-MM-DDT00:00:00. A wrong number of values fails.
void BindSqliteParameters(sqlite3_stmt* statement, std::span<const Value> parameters);

/// Steps the statement to its end and keeps all rows. Integers become whole numbers and reals
/// floating-point numbers. A text becomes a date if its column is declared as some kind of DATE and
/// the text is a whole day in the form YYYY-MM-DDT00:00:00; otherwise it is kept as text. Returns
/// false if a step fails; the engine then has the reason.
bool ReadSqliteRows(sqlite3_stmt* statement, ResultSet& result);

/// Adds at most this number of rows to a result that has the statement's columns, or none yet.
/// Returns false if there are no more rows or a step fails; the engine then has the reason.
bool ReadSqliteBlock(sqlite3_stmt* statement, int mostRows, ResultSet& result);

} // namespace Quillane
