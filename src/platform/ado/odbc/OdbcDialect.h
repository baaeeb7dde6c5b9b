#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcColumn.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// The differences between kinds of servers.
struct OdbcDialect {
    enum class Server { TSql, Postgres, Other };

    Server server = Server::Other;
    std::string setUp; ///< runs once on a new session; may be empty
    std::string begin;
    std::string commit;
    std::string rollback; ///< does nothing if no transaction is open
    /// Returns the number of open transactions; empty if every failure ends the transaction.
    std::string openTransactions;
};

/// Chosen by the name that the driver gives for the server.
OdbcDialect OdbcDialectOf(std::string_view serverName);

/// A column of a row that is found by the values of all its columns.
struct OdbcMatchedColumn {
    std::string inStatement; ///< its name, quoted for a statement if necessary
    OdbcColumn column;
    Value value;
};

/// Matches exactly one row of a table without a key. Text is compared with case and trailing
/// blanks. Errors: not updatable (3251) for a server for which no such match is known, and for a
/// value of `xml` or `sql_variant`.
RowMatch OdbcKeylessMatch(OdbcDialect::Server server, std::string_view table,
                          std::span<const OdbcMatchedColumn> columns);

} // namespace Quillane
