#pragma once

#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcColumn.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// What differs from one kind of server to the other.
struct OdbcDialect {
    enum class Server { TSql, Postgres, Other };

    Server server = Server::Other;
    std::string setUp; ///< runs once on a new session; may be empty
    std::string begin;
    std::string commit;
    std::string rollback; ///< does nothing where no transaction is open
    /// Gives the number of open transactions; empty where every failure ends the transaction.
    std::string openTransactions;
};

/// By the name that the server's driver gives it.
OdbcDialect OdbcDialectOf(std::string_view serverName);

/// One column of a row that is to be found by all of its values.
struct OdbcMatchedColumn {
    std::string inStatement; ///< its name as a statement holds it
    OdbcColumn column;
    Value value;
};

/// The match of exactly one row of a table without a key. Texts match to the letter, with their
/// case and their blanks. A server for which no such match is known fails (3251).
RowMatch OdbcKeylessMatch(OdbcDialect::Server server, std::string_view table,
                          std::span<const OdbcMatchedColumn> columns);

} // namespace Quillane
