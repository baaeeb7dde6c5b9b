#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/Value.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class ConnectionAttributes;
struct EmbeddedSupport;

/// The condition that finds exactly one row of a table for a write.
struct RowMatch {
    std::string limit; ///< follows the verb of the statement; empty, or ends with a blank
    std::string condition;
    std::vector<Value> parameters; ///< of the condition, in their order
};

/// The database engine of a `Connection`. Errors: a Failure with the source "Database", the text of
/// the engine, and its codes.
class Engine {
public:
    virtual ~Engine() = default;

    /// Runs one statement. Reads all rows into `result` and closes the engine's cursor. A statement
    /// without columns leaves `result` without any. Returns the number of changed rows, -1 if the
    /// engine does not report it.
    virtual long Run(std::string_view statement, std::span<const Value> parameters,
                     ResultSet& result) = 0;

    /// Gives the rows of a query block by block. An engine that has no better method reads all of
    /// them first.
    virtual void ReadBlocks(std::string_view query, const BlockReader& take);

    /// Runs a statement once for each row, whose fields are its parameters; in one round trip for
    /// many rows if the engine can do so. After a failure some of the rows may have been stored.
    virtual void RunForEach(std::string_view statement, const ResultSet& rows);

    virtual void Begin() = 0;
    virtual void Commit() = 0;
    /// Ends the transaction. One that the engine has already ended, or that was lost with the
    /// connection, counts as rolled back.
    virtual void Rollback() = 0;
    /// False after the engine has rolled back the open transaction.
    virtual bool InTransaction() = 0;

    /// The columns of the table's primary key, in key order; empty for a table without one. `table`
    /// is the name as in a statement.
    virtual std::vector<std::string> KeyColumns(std::string_view table) = 0;

    /// The name of a column for a statement, quoted if necessary.
    virtual std::string ColumnInStatement(std::string_view column) = 0;

    /// Finds one row of a table without a key by the exact values of its columns.
    virtual RowMatch KeylessMatch(std::string_view table, std::span<const std::string> columns,
                                  std::span<const Value> values) = 0;

    /// The name of the database in use.
    virtual std::string DefaultDatabase() = 0;
    /// The file of the database; empty on a server.
    virtual std::string DatabaseFile() { return {}; }
    /// See `Connection::WriteBack`.
    virtual bool WriteBack() { return true; }
};

/// The sign-in, and the time-outs of the sign-in and of each statement.
struct SignIn {
    std::string_view userId;
    std::string_view password;
    int timeoutSeconds = 15;
    int commandTimeoutSeconds = 30;
};

/// Opens the engine of the connection string: the server name `(embedded)` means the embedded
/// database, any other name a server with the string's ODBC driver.
std::unique_ptr<Engine> OpenEngine(const ConnectionAttributes& connection, const SignIn& signIn,
                                   const EmbeddedSupport& support);

} // namespace Quillane
