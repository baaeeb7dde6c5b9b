#include "platform/ado/odbc/OdbcDialect.h"

#include "platform/ado/AdoFailure.h"

namespace Quillane {

namespace {

bool IsText(const OdbcColumn& column) {
    switch (column.sqlType) {
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
        return true;
    default:
        return false;
    }
}

/// SQL Server's numbers of two types without a comparison that holds for every value.
constexpr SQLSMALLINT variantType = -150;
constexpr SQLSMALLINT xmlType = -152;

[[noreturn]] void FailWithoutKey(std::string_view table) {
    FailAccess(FailureNumber::NotUpdatable,
               "The rows of " + std::string(table) +
                   " cannot be written back, since the table has no key.");
}

/// Bytes are read as their digits, which are a literal of T-SQL.
bool IsLiteral(OdbcDialect::Server server, const OdbcMatchedColumn& matched) {
    return server == OdbcDialect::Server::TSql && matched.column.IsBinary();
}

/// Comparisons of text on this server ignore case or trailing blanks; comparisons of bytes ignore
/// neither. Long text can only be compared through such a conversion.
std::string TSqlComparison(std::string_view table, const OdbcMatchedColumn& matched) {
    const std::string& name = matched.inStatement;
    if (matched.column.sqlType == variantType || matched.column.sqlType == xmlType)
        FailWithoutKey(table);
    if (matched.column.IsBinary())
        return "CAST(" + name + " AS varbinary(max)) = 0x" + matched.value.Text();
    if (!IsText(matched.column))
        return name + " = ?";
    const auto bytesOf = [](const std::string& text) {
        return "CAST(CAST(" + text + " AS nvarchar(max)) AS varbinary(max))";
    };
    return bytesOf(name) + " = " + bytesOf("?");
}

std::string Comparison(OdbcDialect::Server server, std::string_view table,
                       const OdbcMatchedColumn& matched) {
    if (matched.value.IsNull())
        return matched.inStatement + " IS NULL";
    return server == OdbcDialect::Server::TSql ? TSqlComparison(table, matched)
                                               : matched.inStatement + " = ?";
}

} // namespace

OdbcDialect OdbcDialectOf(std::string_view serverName) {
    if (serverName.find("SQL Server") != std::string_view::npos)
        return {OdbcDialect::Server::TSql,
                // The driver's default may cut long text, and the server's default may suppress
                // row counts.
                "SET TEXTSIZE 2147483647 SET NOCOUNT OFF", "BEGIN TRANSACTION",
                "COMMIT TRANSACTION", "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION",
                "SELECT @@TRANCOUNT"};
    const bool isPostgres = serverName.find("PostgreSQL") != std::string_view::npos;
    return {isPostgres ? OdbcDialect::Server::Postgres : OdbcDialect::Server::Other,
            "",
            "BEGIN",
            "COMMIT",
            "ROLLBACK",
            ""};
}

RowMatch OdbcKeylessMatch(OdbcDialect::Server server, std::string_view table,
                          std::span<const OdbcMatchedColumn> columns) {
    RowMatch match;
    for (const OdbcMatchedColumn& matched : columns) {
        match.condition += match.condition.empty() ? "" : " AND ";
        match.condition += Comparison(server, table, matched);
        if (!matched.value.IsNull() && !IsLiteral(server, matched))
            match.parameters.push_back(matched.value);
    }
    switch (server) {
    case OdbcDialect::Server::TSql:
        match.limit = "TOP (1) ";
        break;
    case OdbcDialect::Server::Postgres:
        match.condition = "ctid = (SELECT ctid FROM " + std::string(table) + " WHERE " +
                          match.condition + " LIMIT 1)";
        break;
    case OdbcDialect::Server::Other:
        FailWithoutKey(table);
    }
    return match;
}

} // namespace Quillane
