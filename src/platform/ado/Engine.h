#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/Value.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class ConnectionString;
struct EmbeddedSupport;

/// What finds one row, and only one, of a table for a write.
struct RowMatch {
    std::string limit; ///< stands between the statement's verb and its table, with a blank behind
    std::string condition;
    std::vector<Value> parameters; ///< of the condition, in their order
};

/// What a database engine does for `Connection`: open, run, transactions, and the key columns of a
/// table. Every refusal is a Failure with the source "Database" and the engine's own words.
class Engine {
public:
    virtual ~Engine() = default;

    /// Runs one statement. A result is read to its end into `result` and the engine's own cursor is
    /// closed before this returns; a statement that yields no columns leaves `result` without any.
    /// Returns the number of rows that the statement changed, -1 where the engine does not say.
    virtual long Run(std::string_view statement, std::span<const Value> parameters,
                     ResultSet& result) = 0;

    /// Gives the rows of a query block by block. An engine that has no better method reads all of
    /// them first.
    virtual void ReadBlocks(std::string_view query, const BlockReader& take);

    /// Runs a statement once for each row, whose fields are its parameters, in one round trip for
    /// many rows where the engine can. Where it fails, some of the rows may have been stored.
    virtual void RunForEach(std::string_view statement, const ResultSet& rows);

    virtual void Begin() = 0;
    virtual void Commit() = 0;
    /// Ends the transaction; one that the engine has ended already, or a server that has gone,
    /// counts as rolled back.
    virtual void Rollback() = 0;
    /// False once the engine has ended the open transaction by itself.
    virtual bool InTransaction() = 0;

    /// The columns of the table's primary key, in key order; empty for a table without one. The
    /// table is named as a statement names it.
    virtual std::vector<std::string> KeyColumns(std::string_view table) = 0;

    /// The name of a column as a statement may hold it: quoted where it has to be.
    virtual std::string ColumnInStatement(std::string_view column) = 0;

    /// Finds one row of a table without a key by the values of its columns, exactly.
    virtual RowMatch KeylessMatch(std::string_view table, std::span<const std::string> columns,
                                  std::span<const Value> values) = 0;

    /// The name of the database that the session works on.
    virtual std::string DefaultDatabase() = 0;
    /// The file that holds it; empty on a server.
    virtual std::string DatabaseFile() { return {}; }
    /// See `Connection::WriteBack`.
    virtual bool WriteBack() { return true; }
};

/// Who signs in, and how long the engine may take over it and over each statement.
struct SignIn {
    std::string_view userId;
    std::string_view password;
    int timeoutSeconds = 15;
    int commandTimeoutSeconds = 30;
};

/// The one place that chooses an engine: the server name `(embedded)` means the embedded database,
/// any other a server that the string's ODBC driver reaches.
std::unique_ptr<Engine> OpenEngine(const ConnectionString& connection, const SignIn& signIn,
                                   const EmbeddedSupport& support);

} // namespace Quillane
