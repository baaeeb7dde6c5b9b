#pragma once

#include "office/records/Tables.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A number of rows in another table that hold the key of a row.
struct Reference {
    KeyColumn from;
    long rows = 0;
};

/// Finds the rows that refer to a row, by the foreign keys of the database and by the joins with
/// which the station opens an arrival. Tables that this user may not read are not searched; the
/// database itself then refuses the delete.
std::vector<Reference> ReferencesTo(Connection& connection, const Table& table, const Row& row);

struct DeleteResult {
    enum class End { Deleted, IsReferredTo, Conflicts };
    End end = End::Deleted;
    std::vector<Reference> references{};
    std::optional<Row> stored{}; ///< after a conflict; none if the row has been deleted
};

/// Deletes the row in one transaction, if nothing refers to it and it has not been changed.
DeleteResult DeleteRow(Connection& connection, const Table& table, const Row& row);

/// "Party 601 (Zahid) cannot be deleted, because other rows refer to it: Arrivals (12 rows) ..."
std::string DescribeReferences(const Table& table, const Row& row,
                               const std::vector<Reference>& references);

} // namespace Quillane::Office
