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

/// A new row, or one in place of another.
struct RowChange {
    std::optional<Row> before; ///< as it was shown; none for a new row
    Row after;                 ///< same key
};

/// What another session has stored since `before` was read.
struct Conflict {
    std::size_t change = 0;    ///< which of the changes
    std::optional<Row> stored; ///< none: the row has been deleted
};

struct WriteResult {
    enum class End { Written, Conflicts, BrokenOff };
    End end = End::Written;
    Conflict conflict; ///< the first one
};

/// So many changes are made; false breaks the work off.
using Progress = std::function<bool(int done)>;

/// Writes all of the changes or none, in one transaction. A row that is not as it was shown, and a
/// new one whose key is there by now, is a conflict. The rules are not looked at here. A failure of
/// the database is thrown after the rollback.
WriteResult WriteRows(Connection& connection, const Table& table,
                      std::span<const RowChange> changes, const Progress& progress = {});

/// Waits for whoever is writing the row, and keeps others from it until the open transaction ends.
void LockRow(Connection& connection, const Table& table, const std::string& key);

/// What a conflict means, cell by cell: "Address: it was "A", it is now "B", yours is "C"."
/// `shown` gives a cell as text.
std::string DescribeConflict(const Table& table, const RowChange& change, const Conflict& conflict,
                             const std::function<std::string(std::size_t, const Row&)>& shown);

} // namespace Quillane::Office
