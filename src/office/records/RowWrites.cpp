#include "office/records/RowWrites.h"

#include "office/records/Rows.h"
#include "office/records/Texts.h"
#include "platform/ado/Transaction.h"

#include <algorithm>
#include <unordered_map>

namespace Quillane::Office {

namespace {

std::string_view AnyColumn(const Table& table, std::size_t part) {
    const auto found = std::ranges::find_if(table.columns, [&](const Column& column) {
        return column.part == part && column.name != table.parts[part].key;
    });
    return found->name;
}

Value Stored(const Table& table, const Column& column, const std::string& cell) {
    if (cell.empty())
        return {};
    if (column.kind == CellKind::Flag)
        return cell == "1" ? 1 : 0;
    const bool isKey = &column == &table.Key();
    if (column.kind == CellKind::Reference || (isKey && table.numbersItself))
        if (const auto number = PositiveNumber(cell))
            return std::int64_t{*number};
    return cell;
}

/// A recordset of the rows of one part that are to be written.
class PartRows {
public:
    PartRows(Connection& connection, const Table& table, std::size_t part,
             std::span<const RowChange> changes)
        : table_(table), part_(part) {
        const std::string source = "Select * From " + std::string(table.parts[part].table);
        rows_.Open(source + " Where " + Condition(changes), connection, adOpenStatic,
                   adLockOptimistic);
        for (; !rows_.Eof(); rows_.MoveNext())
            positions_.emplace(Folded(Key()), rows_.Position());
    }

    void Write(const RowChange& change) {
        const auto position = positions_.find(Folded(change.after[KeyCell]));
        if (position == positions_.end()) {
            rows_.AddNew();
            rows_.Collect(table_.parts[part_].key,
                          Stored(table_, table_.Key(), change.after[KeyCell]));
        } else {
            rows_.SetPosition(position->second);
        }
        for (std::size_t column = 1; column < table_.columns.size(); ++column)
            if (table_.columns[column].part == part_ &&
                (!change.before || (*change.before)[column] != change.after[column]))
                rows_.Collect(table_.columns[column].name,
                              Stored(table_, table_.columns[column], change.after[column]));
        rows_.Update();
    }

private:
    std::string Condition(std::span<const RowChange> changes) const {
        const auto isOld = [](const RowChange& change) { return change.before.has_value(); };
        if (std::ranges::none_of(changes, isOld))
            return "1 = 0";
        if (changes.size() == 1)
            return KeyCondition(table_, table_.parts[part_], changes[0].after[KeyCell]);
        return "1 = 1";
    }
    std::string Key() const { return CellOf(table_.Key(), rows_.Fields(table_.parts[part_].key)); }

    const Table& table_;
    std::size_t part_;
    Recordset rows_;
    std::unordered_map<std::string, int> positions_; ///< by folded key
};

/// The rows that are stored now under the keys of the changes.
KnownRows StoredNow(Connection& connection, const Table& table,
                    std::span<const RowChange> changes) {
    if (changes.size() > 1)
        return KnownRows(table, ReadRows(connection, table));
    KnownRows stored(table);
    if (!changes.empty())
        if (const auto row = ReadRow(connection, table, changes[0].after[KeyCell]))
            stored.Put(*row);
    return stored;
}

std::optional<Conflict> FirstConflict(const KnownRows& stored, std::span<const RowChange> changes) {
    for (std::size_t place = 0; place < changes.size(); ++place) {
        const RowChange& change = changes[place];
        const Row* now = stored.WithKey(change.after[KeyCell]);
        const bool isAsShown = now ? change.before == *now : !change.before;
        if (!isAsShown)
            return Conflict{place, now ? std::optional(*now) : std::nullopt};
    }
    return std::nullopt;
}

WriteResult WriteWithin(Transaction& transaction, Connection& connection, const Table& table,
                        std::span<const RowChange> changes, const Progress& progress) {
    for (const RowChange& change : changes)
        if (change.before)
            LockRow(connection, table, change.after[KeyCell]);
    if (const auto conflict = FirstConflict(StoredNow(connection, table, changes), changes))
        return {WriteResult::End::Conflicts, *conflict};
    std::vector<PartRows> parts;
    for (std::size_t part = 0; part < table.parts.size(); ++part)
        parts.emplace_back(connection, table, part, changes);
    int done = 0;
    for (const RowChange& change : changes) {
        for (PartRows& part : parts)
            part.Write(change);
        if (progress && !progress(++done))
            return {WriteResult::End::Cancelled, {}};
    }
    transaction.Commit();
    return {};
}

std::string InQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

} // namespace

WriteResult WriteRows(Connection& connection, const Table& table,
                      std::span<const RowChange> changes, const Progress& progress) {
    Transaction transaction(connection);
    return WriteWithin(transaction, connection, table, changes, progress);
}

// An update that changes nothing locks the row in both engines.
void LockRow(Connection& connection, const Table& table, const std::string& key) {
    for (std::size_t part = 0; part < table.parts.size(); ++part) {
        const std::string column(AnyColumn(table, part));
        connection.Execute("Update " + std::string(table.parts[part].table) + " Set " + column +
                           " = " + column + " Where " +
                           KeyCondition(table, table.parts[part], key));
    }
}

std::string DescribeConflict(const Table& table, const RowChange& change, const Conflict& conflict,
                             const std::function<std::string(std::size_t, const Row&)>& shown) {
    const std::string called = Called(table, change.before.value_or(change.after));
    if (!conflict.stored)
        return "Another user has deleted " + called + " in the meantime. Nothing was written.";
    if (!change.before)
        return "Another user has added " + Called(table, *conflict.stored) +
               " in the meantime. Nothing was written.";
    std::string text = "Another user has changed " + called + " in the meantime:";
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        const bool isTheirs = (*change.before)[column] != (*conflict.stored)[column];
        const bool isOurs = (*change.before)[column] != change.after[column];
        if (!isTheirs && !isOurs)
            continue;
        text += "\n" + std::string(table.columns[column].caption) + ": it was " +
                InQuotes(shown(column, *change.before)) + ", it is now " +
                InQuotes(shown(column, *conflict.stored));
        if (isOurs)
            text += ", your entry is " + InQuotes(shown(column, change.after));
    }
    return text;
}

} // namespace Quillane::Office
