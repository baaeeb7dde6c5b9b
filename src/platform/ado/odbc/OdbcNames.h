#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// A table as the catalogue functions take it; parts that the statement does not give are empty.
struct OdbcTable {
    std::string catalogue;
    std::string schema;
    std::string name;
};

/// How the server spells and quotes names, as reported by its driver.
class OdbcNames {
public:
    /// Asks the driver of an open connection. For SQL Server brackets are used, because its session
    /// settings decide whether quotation marks enclose a name or a text.
    OdbcNames(const OdbcHandle& connection, bool usesBrackets);

    /// The column's name for a statement: unquoted if it is a plain word that the server
    /// leaves as it is, quoted otherwise.
    std::string ColumnInStatement(std::string_view column) const;

    /// The table that a statement names, with or without its schema and quotes.
    OdbcTable Table(std::string_view named) const;

private:
    bool IsPlain(std::string_view name) const;
    bool IsReserved(std::string_view name) const;
    bool KeepsCase(char c) const;
    std::string Spelled(std::string_view token) const;

    std::string openingQuote_;
    std::string closingQuote_;
    SQLUSMALLINT wordCase_ = SQL_IC_MIXED; ///< how a name without quotes is changed
    std::vector<std::string> reserved_;    ///< in capitals, sorted
};

/// Information of the driver about itself, the server or the connection.
std::string OdbcInformation(const OdbcHandle& connection, SQLUSMALLINT kind);

} // namespace Quillane
