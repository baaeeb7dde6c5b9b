#include "office/move/TargetDatabase.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Transaction.h"
#include "platform/runtime/Text.h"

#include <algorithm>

namespace Quillane::Office {

namespace {

constexpr const char* markOfMove = "StationMove";
constexpr std::size_t longestMark = 2000;

std::string InApostrophes(std::string_view text) {
    return "'" + Doubled(text, '\'') + "'";
}

} // namespace

MoveDialect DialectOfSqlServer() {
    return {.schema = "dbo.",
            .opening = "[",
            .closing = "]",
            .textType = "nvarchar",
            .hasIdentities = true};
}

std::string TargetDatabase::Quoted(const std::string& name) const {
    if (dialect_.closing.empty())
        return name;
    return dialect_.opening + Doubled(name, dialect_.closing.front()) + dialect_.closing;
}

std::string TargetDatabase::Named(const std::string& table) const {
    return dialect_.schema + Quoted(table);
}

std::string TargetDatabase::ColumnList(const SourceTable& table) const {
    std::string columns;
    for (const std::string& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + Quoted(column);
    return columns;
}

std::string TargetDatabase::InsertStatement(const SourceTable& table) const {
    std::string values = "?";
    for (std::size_t i = 1; i < table.columns.size(); ++i)
        values += ", ?";
    return "INSERT INTO " + Named(table.name) + " (" + ColumnList(table) + ") VALUES (" + values +
           ")";
}

// Servers spell the names in their catalogues differently. A statement finds the table in any case.
bool TargetDatabase::Has(const std::string& table) {
    try {
        connection_.Execute("SELECT * FROM " + Named(table) + " WHERE 1 = 0");
        return true;
    } catch (const Failure&) {
        connection_.Execute("SELECT 1");
        return false;
    }
}

long TargetDatabase::CountOf(const std::string& table) {
    return static_cast<long>(
        connection_.Execute("SELECT COUNT(*) FROM " + Named(table)).Fields(0).Number());
}

std::vector<std::string> TargetDatabase::MissingColumns(const SourceTable& table) {
    const Recordset none =
        connection_.Execute("SELECT * FROM " + Named(table.name) + " WHERE 1 = 0");
    std::vector<std::string> missing = table.columns;
    for (int field = 0; field < none.FieldCount(); ++field)
        std::erase_if(missing, [&](const std::string& column) {
            return EqualIgnoringCase(column, none.FieldName(field));
        });
    return missing;
}

std::string TargetDatabase::UnfinishedMove() {
    if (!Has(markOfMove))
        return {};
    const Recordset rows = connection_.Execute("SELECT Source FROM " + Named(markOfMove));
    return rows.Eof() ? std::string() : rows.Fields(0).TextOrEmpty();
}

void TargetDatabase::BeginMove(const std::string& ofDatabase) {
    Transaction transaction(connection_);
    connection_.Execute("CREATE TABLE " + Named(markOfMove) + " (Source " + dialect_.textType +
                        "(" + std::to_string(longestMark) + ") NOT NULL)");
    ResultSet mark;
    mark.SetColumns({"Source"});
    mark.BeginRow();
    mark.AddText(ofDatabase);
    connection_.ExecuteForEach("INSERT INTO " + Named(markOfMove) + " (Source) VALUES (?)", mark);
    transaction.Commit();
}

void TargetDatabase::EndMove() {
    if (Has(markOfMove))
        connection_.Execute("DROP TABLE " + Named(markOfMove));
}

void TargetDatabase::Clear(const std::string& table) {
    connection_.Execute("DELETE FROM " + Named(table));
}

void TargetDatabase::Insert(const SourceTable& table, const ResultSet& block, long before) {
    std::string words;
    try {
        Transaction transaction(connection_);
        connection_.ExecuteForEach(InsertStatement(table), block);
        transaction.Commit();
        return;
    } catch (const Failure& failure) {
        words = failure.Description();
    }
    FailOnRow(table, block, before, words);
}

void TargetDatabase::FailOnRow(const SourceTable& table, const ResultSet& block, long before,
                               const std::string& words) {
    std::string wordsOnRow;
    const int row = RefusedRow(table, block, wordsOnRow);
    if (row < 0)
        FailDatabase("Rows of the table " + table.name +
                     " cannot be stored on the server: " + words);
    FailDatabase("The server refuses a row of the table " + table.name + ", " +
                 NameOfRow(table, block, row, before + row + 1) + ": " + wordsOnRow +
                 "\nPlease correct this row, and try again.");
}

// Not every driver reports which of many rows was refused. None of them is stored.
int TargetDatabase::RefusedRow(const SourceTable& table, const ResultSet& block,
                               std::string& words) {
    int row = 0;
    try {
        const Transaction transaction(connection_);
        for (; row < block.RowCount(); ++row) {
            ResultSet one;
            one.SetColumns(table.columns);
            one.AppendRow();
            for (int field = 0; field < block.FieldCount(); ++field)
                one.Set(0, field, block.At(row, field));
            connection_.ExecuteForEach(InsertStatement(table), one);
        }
        return -1;
    } catch (const Failure& failure) {
        words = failure.Description();
    }
    try {
        connection_.Execute("SELECT 1");
        return row;
    } catch (const Failure&) {
        return -1; // the server is lost; it has not refused the row
    }
}

void TargetDatabase::Read(const SourceTable& table, const BlockReader& take) {
    connection_.ReadBlocks("SELECT " + ColumnList(table) + " FROM " + Named(table.name), take);
}

bool TargetDatabase::NumbersItself(const SourceTable& table) {
    if (!dialect_.hasIdentities)
        return false;
    const Recordset answer = connection_.Execute(
        "SELECT COUNT(*) FROM sys.columns WHERE is_identity = 1 AND object_id = "
        "OBJECT_ID(N" +
        InApostrophes(Named(table.name)) + ")");
    return answer.Fields(0).Number() > 0;
}

void TargetDatabase::BeginNumbers(const SourceTable& table) {
    if (NumbersItself(table))
        connection_.Execute("SET IDENTITY_INSERT " + Named(table.name) + " ON");
}

// A table without rows may or may not assign this number next, depending on its history.
void TargetDatabase::EndNumbers(const SourceTable& table) {
    if (!NumbersItself(table))
        return;
    connection_.Execute("SET IDENTITY_INSERT " + Named(table.name) + " OFF");
    if (table.rows == 0 && table.lastNumber == 0)
        return;
    std::int64_t last = table.lastNumber + (table.rows == 0 ? 1 : 0);
    if (table.rows > 0 && table.key.size() == 1) {
        const Value highest =
            connection_
                .Execute("SELECT MAX(" + Quoted(table.key.front()) + ") FROM " + Named(table.name))
                .Fields(0);
        last = std::max(last, static_cast<std::int64_t>(highest.Number()));
    }
    connection_.Execute("DBCC CHECKIDENT (" + InApostrophes(Named(table.name)) + ", RESEED, " +
                        std::to_string(last) + ") WITH NO_INFOMSGS");
}

} // namespace Quillane::Office
