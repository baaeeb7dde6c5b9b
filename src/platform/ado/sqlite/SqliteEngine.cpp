#include "platform/ado/sqlite/SqliteEngine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/SqlTokens.h"
#include "platform/ado/sqlite/SqliteFile.h"
#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteRows.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/ado/sqlite/TSqlTranslator.h"
#include "platform/runtime/FileAccess.h"
#include "platform/runtime/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace Quillane {

void SqliteEngine::CloseDatabase::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

SqliteEngine::SqliteEngine(std::string database, const EmbeddedSupport& support)
    : database_(std::move(database)), afterChange_(support.afterChange), waits_(support),
      secret_(support.secret) {
    const std::string path = ExistingDatabaseFile(support.folder, database_);
    RemoveAccessOfOthers(path); // it contains the hashes of passwords
    handle_.reset(OpenSqliteFile(path));
    const SqliteWaits::Statement wait(waits_);
    waits_.Install(handle_.get());
    RegisterTextComparison(handle_.get());
    PrepareSqliteSession(handle_.get(), path);
    if (support.registerFunctions)
        support.registerFunctions(handle_.get());
    secret_.Install(handle_.get());
    statements_.emplace(handle_.get(), secret_);
    files_.Begin(handle_.get(), path);
}

void SqliteEngine::FailWithMessage() {
    FailDatabase(SqliteMessage(handle_.get()), {.native = sqlite3_extended_errcode(handle_.get())});
}

long SqliteEngine::Run(std::string_view statement, std::span<const Value> parameters,
                       ResultSet& result) {
    const SqliteWaits::Statement wait(waits_);
    TakeWriteLock();
    secret_.SetStatement(statement);
    const SqliteStatements::Ready ready = statements_->Take(statement, parameters);
    Step(ready.get(), result);
    const bool yieldsRows = sqlite3_column_count(ready.get()) > 0;
    return yieldsRows ? -1 : static_cast<long>(sqlite3_changes(handle_.get()));
}

// Without an open transaction each write is a transaction.
void SqliteEngine::Step(sqlite3_stmt* statement, ResultSet& result) {
    const bool commits = !sqlite3_stmt_readonly(statement) && sqlite3_get_autocommit(handle_.get());
    if (commits)
        files_.RefuseOtherFiles();
    if (!ReadSqliteRows(statement, result))
        FailWithMessage();
    if (commits)
        ReportChange();
}

void SqliteEngine::ReportChange() {
    files_.RefuseOtherFiles();
    if (afterChange_)
        afterChange_();
}

void SqliteEngine::RunPlain(const char* text) {
    if (sqlite3_exec(handle_.get(), text, nullptr, nullptr, nullptr) != SQLITE_OK)
        FailWithMessage();
}

void SqliteEngine::Begin() {
    beginsWithNextStatement_ = true;
}

// With the first statement, not with the first write: SQLite refuses a transaction that begins as a
// reader and writes later, without waiting.
void SqliteEngine::TakeWriteLock() {
    if (!beginsWithNextStatement_)
        return;
    RunPlain("BEGIN IMMEDIATE");
    beginsWithNextStatement_ = false;
    files_.RefuseOtherContents();
}

void SqliteEngine::Commit() {
    if (std::exchange(beginsWithNextStatement_, false))
        return;
    const SqliteWaits::Statement wait(waits_);
    files_.RefuseOtherFiles();
    RunPlain("COMMIT");
    ReportChange();
}

void SqliteEngine::Rollback() {
    beginsWithNextStatement_ = false;
    if (!sqlite3_get_autocommit(handle_.get()))
        RunPlain("ROLLBACK");
}

bool SqliteEngine::InTransaction() {
    return beginsWithNextStatement_ || !sqlite3_get_autocommit(handle_.get());
}

bool SqliteEngine::WriteBack() {
    if (InTransaction())
        return false;
    SqliteWaits::Remove(handle_.get());
    const int outcome = sqlite3_wal_checkpoint_v2(handle_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE,
                                                  nullptr, nullptr);
    waits_.Install(handle_.get());
    files_.Renew();
    return outcome == SQLITE_OK;
}

std::vector<std::string> SqliteEngine::KeyColumns(std::string_view table) {
    const Value name = NameOf(FromTSql(table));
    ResultSet keys;
    Run("SELECT name FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk", {&name, 1}, keys);
    std::vector<std::string> columns;
    for (int row = 0; row < keys.RowCount(); ++row)
        columns.push_back(keys.At(row, 0).Text());
    return columns;
}

std::string SqliteEngine::DatabaseFile() {
    const char* file = sqlite3_db_filename(handle_.get(), "main");
    return file ? file : "";
}

std::string SqliteEngine::ColumnInStatement(std::string_view column) {
    const bool isPlain = !column.empty() && !(column.front() >= '0' && column.front() <= '9') &&
                         std::all_of(column.begin(), column.end(),
                                     [](char c) {
                                         return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                                                (c >= '0' && c <= '9') || c == '_' ||
                                                (c & 0x80) != 0;
                                     }) &&
                         !sqlite3_keyword_check(column.data(), static_cast<int>(column.size()));
    if (isPlain)
        return std::string(column);
    return '"' + Doubled(column, '"') + '"';
}

RowMatch SqliteEngine::KeylessMatch(std::string_view table, std::span<const std::string> columns,
                                    std::span<const Value> values) {
    RowMatch match;
    std::string condition;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        condition += condition.empty() ? "" : " AND ";
        condition += ColumnInStatement(columns[i]);
        condition += values[i].IsNull() ? " IS NULL" : " = ? COLLATE BINARY";
        if (!values[i].IsNull())
            match.parameters.push_back(values[i]);
    }
    match.condition =
        "rowid = (SELECT rowid FROM " + std::string(table) + " WHERE " + condition + " LIMIT 1)";
    return match;
}

} // namespace Quillane
