#include "platform/ado/odbc/OdbcCatalogue.h"

#include "platform/ado/SqlTokens.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

/// An empty name means any name here, not a table without one.
SQLWCHAR* Asked(const std::string& name, OdbcText& text) {
    return name.empty() ? nullptr : text.data();
}

int ColumnCountOf(const OdbcHandle& statement) {
    SQLSMALLINT count = 0;
    statement.Check(SQLNumResultCols(statement.Get(), &count));
    return count;
}

} // namespace

std::vector<std::string> OdbcPrimaryKey(const OdbcHandle& statement, const OdbcTable& table,
                                        OdbcBlock& block) {
    OdbcText catalogue = ToOdbc(table.catalogue);
    OdbcText schema = ToOdbc(table.schema);
    OdbcText name = ToOdbc(table.name);
    statement.Check(SQLPrimaryKeysW(statement.Get(), Asked(table.catalogue, catalogue), SQL_NTS,
                                    Asked(table.schema, schema), SQL_NTS, name.data(), SQL_NTS));
    ResultSet rows;
    ReadOdbcRows(statement, ColumnCountOf(statement), block, rows);
    constexpr int columnName = 3;
    constexpr int placeInKey = 4;
    std::vector<std::pair<double, std::string>> key;
    for (int row = 0; row < rows.RowCount(); ++row)
        key.emplace_back(rows.At(row, placeInKey).Number(), rows.At(row, columnName).Text());
    std::sort(key.begin(), key.end());
    std::vector<std::string> columns;
    for (auto& [place, column] : key)
        columns.push_back(std::move(column));
    return columns;
}

std::string ViewQuestion(std::string_view name) {
    return "SELECT 1 WHERE OBJECT_ID(N'" + Doubled(name, '\'') + "', N'V') IS NOT NULL";
}

std::string ForeignKeysOfViewedTable(std::string_view statement) {
    SqlTokens tokens(statement);
    for (const std::string_view word : {"exec", "sp_fkeys", "@pktable_name"})
        if (!tokens.IsWord(tokens.Next(), word))
            return {};
    if (!tokens.IsSymbol(tokens.Next(), '=') || !tokens.IsWord(tokens.Next(), "n"))
        return {};
    const SqlToken name = tokens.Next();
    if (name.kind != SqlTokenKind::String || tokens.Next().kind != SqlTokenKind::End)
        return {};
    const std::string literal = "N" + std::string(tokens.TextOf(name));
    return "IF OBJECT_ID(" + literal +
           ", N'V') IS NOT NULL EXEC sp_fkeys @pktable_name = " + literal +
           ", @pktable_owner = N'dbo'";
}

std::vector<OdbcColumn> OdbcColumnsOfTable(const OdbcHandle& statement, const std::string& table) {
    OdbcText text = ToOdbc("SELECT * FROM " + table + " WHERE 1 = 0");
    statement.Check(SQLExecDirectW(statement.Get(), text.data(), SQL_NTS));
    return OdbcColumnsOf(statement, ColumnCountOf(statement));
}

} // namespace Quillane
