#include "office/records/Rows.h"

#include "office/records/Texts.h"
#include "platform/ado/Connection.h"

#include <algorithm>

namespace Quillane::Office {

namespace {

std::string Qualified(const Part& part, std::string_view column) {
    return std::string(part.table) + "." + std::string(column);
}

/// The key comes from the last part: a record without a row there is not in this list.
std::string SourceOf(const Table& table, const Column& column) {
    return Qualified(table.parts[column.part], column.name);
}

std::string ReadStatement(const Table& table, const std::string& condition = {}) {
    std::string columns;
    for (const Column& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + SourceOf(table, column);
    std::string from = std::string(table.parts.back().table);
    for (std::size_t part = 0; part + 1 < table.parts.size(); ++part)
        from += " Inner Join " + std::string(table.parts[part].table) + " On " +
                Qualified(table.parts[part], table.parts[part].key) + " = " +
                Qualified(table.parts.back(), table.parts.back().key);
    return "Select " + columns + " From " + from + condition + " Order By " +
           SourceOf(table, table.Name());
}

Row CurrentRow(const Table& table, const Recordset& rows) {
    Row row;
    for (std::size_t column = 0; column < table.columns.size(); ++column)
        row.push_back(CellOf(table.columns[column], rows.Fields(static_cast<int>(column))));
    return row;
}

void ReadKeysOfOthers(Connection& connection, Snapshot& snapshot) {
    const Table& table = snapshot.rows.Described();
    const Part& part = table.parts.front();
    Recordset read =
        connection.Execute("Select " + std::string(part.key) + ", " +
                           std::string(table.Name().name) + " From " + std::string(part.table));
    for (; !read.Eof(); read.MoveNext()) {
        const std::string key = CellOf(table.Key(), read.Fields(0));
        if (!snapshot.rows.WithKey(key))
            snapshot.keysOfOthers.emplace(Folded(key), CellOf(table.Name(), read.Fields(1)));
    }
}

} // namespace

std::string CellOf(const Column& column, const Value& value) {
    if (column.kind == CellKind::Flag)
        return !value.IsNull() && value.Number() != 0 ? "1" : "0";
    std::string text = value.TextOrEmpty();
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::vector<Row> ReadRows(Connection& connection, const Table& table) {
    std::vector<Row> rows;
    Recordset read = connection.Execute(ReadStatement(table));
    rows.reserve(static_cast<std::size_t>(read.RecordCount()));
    for (; !read.Eof(); read.MoveNext())
        rows.push_back(CurrentRow(table, read));
    return rows;
}

std::string KeyCondition(const Table& table, const Part& part, const std::string& key) {
    return Qualified(part, part.key) + " = " + (table.numbersItself ? key : SqlText(key));
}

std::optional<Row> ReadRow(Connection& connection, const Table& table, const std::string& key) {
    const Recordset read = connection.Execute(
        ReadStatement(table, " Where " + KeyCondition(table, table.parts.back(), key)));
    if (read.Eof())
        return std::nullopt;
    return CurrentRow(table, read);
}

KnownRows::KnownRows(const Table& table, const std::vector<Row>& rows) : table_(&table) {
    rows_.reserve(rows.size());
    for (const Row& row : rows)
        Put(row);
}

void KnownRows::Put(const Row& row) {
    const auto [place, isNew] = byKey_.try_emplace(Folded(row[KeyCell]), rows_.size());
    if (isNew) {
        rows_.push_back(row);
    } else {
        const auto [first, last] = byName_.equal_range(Folded(rows_[place->second][NameCell]));
        byName_.erase(std::find_if(
            first, last, [&](const auto& entry) { return entry.second == place->second; }));
        rows_[place->second] = row;
    }
    byName_.emplace(Folded(row[NameCell]), place->second);
    if (table_->numbersItself)
        highest_ = std::max(highest_, PositiveNumber(row[KeyCell]).value_or(0));
}

const Row* KnownRows::WithKey(std::string_view key) const {
    const auto found = byKey_.find(Folded(key));
    return found == byKey_.end() ? nullptr : &rows_[found->second];
}

std::vector<const Row*> KnownRows::WithName(std::string_view name) const {
    std::vector<const Row*> found;
    const auto [first, last] = byName_.equal_range(Folded(name));
    for (auto entry = first; entry != last; ++entry)
        found.push_back(&rows_[entry->second]);
    return found;
}

std::string KnownRows::NextNumber() const {
    return std::to_string(std::int64_t{highest_} + 1);
}

std::string Snapshot::ShownCell(std::size_t column, const Row& row) const {
    const Table* target = rows.Described().columns[column].target;
    if (!target)
        return row[column];
    const Row* named = targets.at(target->name).WithKey(row[column]);
    return named ? (*named)[NameCell] : row[column];
}

Snapshot ReadSnapshot(Connection& connection, const Table& table) {
    Snapshot snapshot{
        .rows = KnownRows(table, ReadRows(connection, table)), .targets = {}, .keysOfOthers = {}};
    for (const Column& column : table.columns)
        if (column.target)
            snapshot.targets.try_emplace(column.target->name, *column.target,
                                         ReadRows(connection, *column.target));
    if (table.parts.size() > 1)
        ReadKeysOfOthers(connection, snapshot);
    return snapshot;
}

} // namespace Quillane::Office
