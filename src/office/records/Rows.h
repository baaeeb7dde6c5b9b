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

/// All rows of a table, by name.
std::vector<Row> ReadRows(Connection& connection, const Table& table);

/// The row with this key; none where there is none.
std::optional<Row> ReadRow(Connection& connection, const Table& table, const std::string& key);

/// A condition on one part that finds the row with this key: PartyId = N'6010001'.
std::string KeyCondition(const Table& table, const Part& part, const std::string& key);

/// A field as a cell of the column. Blanks at the end, with which some tables fill up, go.
std::string CellOf(const Column& column, const Value& value);

/// The rows that a table has, or will have, found by key and by name as the database compares them.
class KnownRows {
public:
    explicit KnownRows(const Table& table, const std::vector<Row>& rows = {});

    const Table& Described() const { return *table_; }

    /// Puts a row in, or in the place of the one with its key.
    void Put(const Row& row);
    /// Null where there is none. Valid until the next Put.
    const Row* WithKey(std::string_view key) const;
    std::vector<const Row*> WithName(std::string_view name) const;
    const std::vector<Row>& Rows() const { return rows_; }

    /// The number that a new row gets: one above the highest.
    std::string NextNumber() const;

private:
    const Table* table_;
    std::vector<Row> rows_;
    std::unordered_map<std::string, std::size_t> byKey_;
    std::unordered_multimap<std::string, std::size_t> byName_;
    std::int32_t highest_ = 0;
};

/// A table's rows, and those of the tables that its references name.
struct Snapshot {
    KnownRows rows;
    /// Of the reference columns' targets, by the target's name.
    std::unordered_map<std::string_view, KnownRows> targets;
    /// Names by folded key: what the first part holds under keys that no row of this list has.
    std::unordered_map<std::string, std::string> keysOfOthers;

    /// The name of what a reference cell names; the cell itself where there is no such row.
    std::string ShownCell(std::size_t column, const Row& row) const;
};

Snapshot ReadSnapshot(Connection& connection, const Table& table);

} // namespace Quillane::Office
