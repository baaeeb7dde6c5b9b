#pragma once

#include "office/records/Tables.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A new or changed row.
struct RowChange {
    std::optional<Row> before; ///< the row as it was read; none for a new row
    Row after;                 ///< has the same key
};

/// A row that another session has changed since `before` was read.
struct Conflict {
    std::size_t change = 0;    ///< the index among the changes
    std::optional<Row> stored; ///< none if the row has been deleted
};

struct WriteResult {
    enum class End { Written, Conflicts, Cancelled };
    End end = End::Written;
    Conflict conflict; ///< the first one
};

/// Receives the number of changes made; returns false to cancel.
using Progress = std::function<bool(int done)>;

/// Writes all changes or none, in one transaction. A row that differs from `before`, or a new row
/// whose key exists now, is a conflict. Requires: the rows have been checked (Checks.h). Errors:
/// throws the failure of the database after the rollback.
WriteResult WriteRows(Connection& connection, const Table& table,
                      std::span<const RowChange> changes, const Progress& progress = {});

/// Locks the row until the open transaction ends. Waits while another session writes it.
void LockRow(Connection& connection, const Table& table, const std::string& key);

/// Describes a conflict cell by cell: "Address: it was "A", it is now "B", your entry is "C"."
/// `shown` returns a cell as text.
std::string DescribeConflict(const Table& table, const RowChange& change, const Conflict& conflict,
                             const std::function<std::string(std::size_t, const Row&)>& shown);

} // namespace Quillane::Office
