#pragma once

#include "office/records/Tables.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// Rows elsewhere that hold the key of a row.
struct Reference {
    KeyColumn from;
    long rows = 0;
};

/// Who refers to the row: found by the database's foreign keys, and by the joins by which the
/// station opens a stored arrival. Only tables that this sign-in may read are seen; the database
/// itself refuses a delete for the sake of the others.
std::vector<Reference> ReferencesTo(Connection& connection, const Table& table, const Row& row);

struct DeleteResult {
    enum class End { Deleted, IsReferredTo, Conflicts };
    End end = End::Deleted;
    std::vector<Reference> references{};
    std::optional<Row> stored{}; ///< of a conflict; none: the row is gone already
};

/// Deletes the row where nothing refers to it and it is as it was shown. All in one transaction.
DeleteResult DeleteRow(Connection& connection, const Table& table, const Row& row);

/// "Party 601 (Zahid) cannot be deleted, since other rows refer to it: Arrivals (12 rows) ..."
std::string DescribeReferences(const Table& table, const Row& row,
                               const std::vector<Reference>& references);

} // namespace Quillane::Office
