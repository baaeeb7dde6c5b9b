#pragma once

#include "platform/ado/Recordset.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace Quillane {

class Engine;

/// What the embedded engine needs from above: where its files lie, and which SQL functions it is
/// to know.
struct EmbeddedSupport {
    std::string folder;                              ///< of the database files
    std::function<void(sqlite3*)> registerFunctions; ///< runs on each new session
};

/// The one session with the database. The members are those of the data access objects that the
/// screens rely on, no more; a failure carries the engine's own words and the source "Database".
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Set before opening on an embedded database.
    void SetEmbeddedSupport(EmbeddedSupport support);

    /// Opens by the connection string "Driver=...;Server=...;Database=...". The server name
    /// `(embedded)` selects the embedded engine, every other one the ODBC driver manager.
    void Open(std::string_view connectionString, std::string_view userId = {},
              std::string_view password = {}, int options = -1);
    void Close();
    int State() const; ///< 0 closed, 1 open

    int ConnectionTimeout = 15; ///< seconds; read at Open
    int CursorLocation = 2;     ///< 3: client-side; every recordset is a client-side copy

    /// The name of the database in use, without the folder or ending of an embedded file.
    std::string DefaultDatabase() const;

    /// Runs a statement; a query gives an open recordset, anything else a closed one.
    Recordset Execute(std::string_view statement, int options = -1);

    void BeginTrans();
    void CommitTrans();
    /// Fails only where no `BeginTrans` has run. Once the engine has ended a transaction by itself,
    /// every further statement fails until this is called: nothing of a broken save is ever
    /// committed piece by piece.
    void RollbackTrans();

    /// Sees every statement text that runs, in its order, before it runs: those of the callers, and
    /// those of row writes. Transactions appear as "BeginTrans", "CommitTrans", "RollbackTrans".
    std::function<void(std::string_view)> StatementObserver;

private:
    friend class Recordset;
    struct Session;
    std::unique_ptr<Session> session_;
};

} // namespace Quillane
