#pragma once

#include "office/records/Tables.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Quillane {
class Connection;
class Recordset;
class Value;
} // namespace Quillane

namespace Quillane::Office {

/// Reads all rows of a table, ordered by name.
std::vector<Row> ReadRows(Connection& connection, const Table& table);

/// Reads the row with this key, if it exists.
std::optional<Row> ReadRow(Connection& connection, const Table& table, const std::string& key);

/// The condition that finds the row with this key in one part: PartyId = N'6010001'.
std::string KeyCondition(const Table& table, const Part& part, const std::string& key);

/// Converts a field to a cell of the column. Blanks at the end are removed: they may be padding.
std::string CellOf(const Column& column, const Value& value);

/// An index of the rows of a table, by key and by name. Texts are compared as the database does.
class KnownRows {
public:
    explicit KnownRows(const Table& table, const std::vector<Row>& rows = {});

    const Table& Described() const { return *table_; }

    /// Adds a row, or replaces the row with the same key.
    void Put(const Row& row);
    /// Null if there is none. Valid until the next Put.
    const Row* WithKey(std::string_view key) const;
    std::vector<const Row*> WithName(std::string_view name) const;
    const std::vector<Row>& Rows() const { return rows_; }

    /// The number of the next new row: the highest number plus 1.
    std::string NextNumber() const;

private:
    const Table* table_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, std::size_t> byKey_;
    std::unordered_multimap<std::string, std::size_t> byName_;
    std::int32_t highest_ = 0;
};

/// The rows of a table and of the tables that it refers to.
struct Snapshot {
    KnownRows rows;
    /// The rows of the tables that reference columns refer to, by table name.
    std::unordered_map<std::string_view, KnownRows> targets;
    /// The names of rows that are only in the first part, so not in this list, by folded key.
    std::unordered_map<std::string, std::string> keysOfOthers;

    /// The name of the row that a reference cell refers to; the cell itself if there is no such
    /// row.
    std::string ShownCell(std::size_t column, const Row& row) const;
};

Snapshot ReadSnapshot(Connection& connection, const Table& table);

} // namespace Quillane::Office
