#include "office/move/SourceDatabase.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteRows.h"
#include "platform/runtime/Text.h"
#include "setup/EmbeddedFile.h"

#include <algorithm>
#include <memory>
#include <span>

namespace Quillane::Office {

namespace {

struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

Statement Prepare(sqlite3* session, const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(session, text.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        FailDatabase(SqliteMessage(session));
    return Statement(statement);
}

ResultSet Ask(sqlite3* session, const std::string& text, const std::string& table) {
    const Statement statement = Prepare(session, text);
    const Value name(table);
    BindSqliteParameters(statement.get(), sqlite3_bind_parameter_count(statement.get()) == 0
                                              ? std::span<const Value>()
                                              : std::span<const Value>(&name, 1));
    ResultSet rows;
    if (!ReadSqliteRows(statement.get(), rows))
        FailDatabase(SqliteMessage(session));
    return rows;
}

std::string InQuotes(const std::string& name) {
    return "\"" + Doubled(name, '"') + "\"";
}

std::string SelectOf(const SourceTable& table) {
    std::string columns;
    for (const std::string& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + InQuotes(column);
    return "SELECT " + columns + " FROM " + InQuotes(table.name);
}

bool RefersToOneOf(const std::string& table, const std::vector<std::string>& waiting,
                   const std::vector<std::pair<std::string, std::string>>& links) {
    return std::ranges::any_of(links, [&](const auto& link) {
        return EqualIgnoringCase(link.first, table) && !EqualIgnoringCase(link.second, table) &&
               std::ranges::any_of(waiting, [&](const std::string& each) {
                   return EqualIgnoringCase(each, link.second);
               });
    });
}

[[noreturn]] void FailOnCircle(const std::vector<std::string>& waiting) {
    std::string names;
    for (const std::string& name : waiting)
        names += (names.empty() ? "" : ", ") + name;
    FailDatabase(
        "These tables refer to each other, so that no order of their rows can be stored: " + names +
        ".");
}

} // namespace

std::vector<std::string>
ParentsFirst(const std::vector<std::string>& tables,
             const std::vector<std::pair<std::string, std::string>>& links) {
    std::vector<std::string> ordered;
    std::vector<std::string> waiting = tables;
    while (!waiting.empty()) {
        const auto next = std::ranges::find_if(waiting, [&](const std::string& table) {
            return !RefersToOneOf(table, waiting, links);
        });
        if (next == waiting.end())
            FailOnCircle(waiting);
        ordered.push_back(*next);
        waiting.erase(next);
    }
    return ordered;
}

SourceDatabase::SourceDatabase(EmbeddedFile& file) : file_(file) {
    const std::vector<std::string> names = Names();
    for (const std::string& name : ParentsFirst(names, Links(names)))
        tables_.push_back(Describe(name));
}

std::vector<std::string> SourceDatabase::Names() const {
    const ResultSet rows = Ask(file_.Session(),
                               "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT "
                               "LIKE 'sqlite~_%' ESCAPE '~' ORDER BY name",
                               {});
    std::vector<std::string> names;
    for (int row = 0; row < rows.RowCount(); ++row)
        names.push_back(rows.At(row, 0).Text());
    return names;
}

std::vector<std::pair<std::string, std::string>>
SourceDatabase::Links(const std::vector<std::string>& names) const {
    std::vector<std::pair<std::string, std::string>> links;
    for (const std::string& name : names) {
        const ResultSet rows =
            Ask(file_.Session(), "SELECT \"table\" FROM pragma_foreign_key_list(?)", name);
        for (int row = 0; row < rows.RowCount(); ++row)
            links.emplace_back(name, rows.At(row, 0).Text());
    }
    return links;
}

SourceTable SourceDatabase::Describe(const std::string& name) const {
    SourceTable table{.name = name, .columns = {}, .key = {}};
    const ResultSet columns =
        Ask(file_.Session(), "SELECT name, pk FROM pragma_table_info(?) ORDER BY cid", name);
    for (int row = 0; row < columns.RowCount(); ++row) {
        table.columns.push_back(columns.At(row, 0).Text());
        if (columns.CellAt(row, 1).whole > 0)
            table.key.push_back(table.columns.back());
    }
    table.rows = file_.FirstNumber(("SELECT count(*) FROM " + InQuotes(name)).c_str());
    const ResultSet hasNumbers =
        Ask(file_.Session(), "SELECT 1 FROM sqlite_schema WHERE name = 'sqlite_sequence'", {});
    if (hasNumbers.RowCount() == 0)
        return table;
    const ResultSet last =
        Ask(file_.Session(), "SELECT seq FROM sqlite_sequence WHERE name = ?", name);
    table.lastNumber = last.RowCount() == 0 ? 0 : last.CellAt(0, 0).whole;
    return table;
}

void SourceDatabase::Read(const SourceTable& table, const BlockReader& take) const {
    constexpr int rowsInBlock = 512;
    const Statement statement = Prepare(file_.Session(), SelectOf(table));
    ResultSet block;
    for (bool isMore = true; isMore;) {
        block.Clear();
        isMore = ReadSqliteBlock(statement.get(), rowsInBlock, block);
        if (block.RowCount() > 0 && !take(block))
            return;
    }
    if (sqlite3_errcode(file_.Session()) != SQLITE_DONE)
        FailDatabase("The table " + table.name +
                     " cannot be read: " + SqliteMessage(file_.Session()));
}

std::string NameOfRow(const SourceTable& table, const ResultSet& rows, int row, long number) {
    std::string name;
    for (const std::string& column : table.key)
        name += (name.empty() ? "" : ", ") + column + " " +
                rows.At(row, rows.FieldNumber(column)).TextOrEmpty();
    return name.empty() ? "number " + std::to_string(number) : name;
}

} // namespace Quillane::Office
