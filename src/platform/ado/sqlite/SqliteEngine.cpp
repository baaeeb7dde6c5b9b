#include "platform/ado/sqlite/SqliteEngine.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/SqlTokens.h"
#include "platform/ado/sqlite/SqliteFile.h"
#include "platform/ado/sqlite/SqliteRows.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/ado/sqlite/TSqlTranslator.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace Quillane {

void SqliteEngine::CloseDatabase::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

SqliteEngine::SqliteEngine(std::string database, const EmbeddedSupport& support)
    : database_(std::move(database)) {
    const std::string path = ExistingDatabaseFile(support.folder, database_);
    OpenFile(path, support);
    Configure(path);
    RegisterTextComparison(handle_.get());
    if (support.registerFunctions)
        support.registerFunctions(handle_.get());
}

void SqliteEngine::OpenFile(const std::string& path, const EmbeddedSupport& support) {
    sqlite3* opened = nullptr;
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int outcome = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    handle_.reset(opened);
    if (outcome != SQLITE_OK)
        FailDatabase("The database file " + path + " cannot be opened: " + sqlite3_errstr(outcome) +
                     ".");
    statements_.emplace(opened);
    sqlite3_busy_timeout(opened, static_cast<int>(support.busyWait.count()));
}

// The first read shows whether the file is a database and whether another program holds it.
void SqliteEngine::Configure(const std::string& path) {
    sqlite3* database = handle_.get();
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    const int outcome =
        sqlite3_exec(database,
                     "PRAGMA foreign_keys=ON; PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; "
                     "SELECT count(*) FROM sqlite_schema",
                     nullptr, nullptr, nullptr);
    if ((outcome & 0xFF) == SQLITE_NOTADB)
        FailDatabase("The file " + path + " is not a database.");
    if ((outcome & 0xFF) == SQLITE_BUSY)
        FailDatabase("The database file " + path + " is locked by another program.");
    if (sqlite3_db_readonly(database, "main") == 1)
        FailDatabase("The database file " + path + " is read-only.");
    if (outcome != SQLITE_OK)
        FailDatabase("The database file " + path + " cannot be used: " + sqlite3_errmsg(database) +
                     ".");
}

void SqliteEngine::FailInWordsOfEngine() {
    FailDatabase(sqlite3_errmsg(handle_.get()));
}

long SqliteEngine::Run(std::string_view statement, std::span<const Value> parameters,
                       ResultSet& result) {
    TakeWriteLock();
    const SqliteStatements::Ready ready = statements_->Take(statement, parameters);
    if (!ReadSqliteRows(ready.get(), result))
        FailInWordsOfEngine();
    const bool yieldsRows = sqlite3_column_count(ready.get()) > 0;
    return yieldsRows ? -1 : static_cast<long>(sqlite3_changes(handle_.get()));
}

void SqliteEngine::RunPlain(const char* text) {
    if (sqlite3_exec(handle_.get(), text, nullptr, nullptr, nullptr) != SQLITE_OK)
        FailInWordsOfEngine();
}

void SqliteEngine::Begin() {
    beginsWithNextStatement_ = true;
}

// At once with the first statement, not with the first write: a reader that turns writer later
// would be refused without any waiting.
void SqliteEngine::TakeWriteLock() {
    if (!beginsWithNextStatement_)
        return;
    RunPlain("BEGIN IMMEDIATE");
    beginsWithNextStatement_ = false;
}

void SqliteEngine::Commit() {
    if (!std::exchange(beginsWithNextStatement_, false))
        RunPlain("COMMIT");
}

void SqliteEngine::Rollback() {
    beginsWithNextStatement_ = false;
    if (!sqlite3_get_autocommit(handle_.get()))
        RunPlain("ROLLBACK");
}

bool SqliteEngine::InTransaction() {
    return beginsWithNextStatement_ || !sqlite3_get_autocommit(handle_.get());
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
    std::string quoted = "\"";
    for (const char c : column)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
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
