#pragma once

#include "platform/ado/LockWait.h"
#include "platform/ado/Recordset.h"
#include "platform/ado/ResultSet.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace Quillane {

class Session;

/// What the embedded engine needs from its caller: the folder of its files, the SQL functions to
/// register, and what to do while it waits for a lock.
struct EmbeddedSupport {
    std::string folder{};                              ///< of the database files
    std::function<void(sqlite3*)> registerFunctions{}; ///< runs on each new session
    std::chrono::milliseconds busyWait{30'000};        ///< the longest wait for the file's lock
    /// Begins a wait for the lock that the user can see. If it is empty, the wait shows nothing.
    std::function<std::unique_ptr<LockWait>()> waitForLock{};
    /// Runs after each change that this session has stored. `WriteBack` then has something to do.
    std::function<void()> afterChange{};

    /// A column that only one statement, written exactly as here, may read. No other statement may
    /// join its table with another one.
    struct Secret {
        std::string table{};
        std::string column{};
        std::string reader{};
    };
    Secret secret{};
};

/// The one session with the database. It has those members of the data access objects that the
/// screens need. A failure has the text of the engine and the source "Database".
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Requires: called before `Open`. Used only for an embedded database.
    void SetEmbeddedSupport(EmbeddedSupport support);

    /// Opens by the connection string "Driver=...;Server=...;Database=...". The server name
    /// `(embedded)` selects the embedded engine with the file `<folder>/<Database>.db`. Any other
    /// server is reached through the ODBC driver in the string.
    /// Errors: 3705 if the connection is open. For the embedded engine, a text that names the file
    /// if it is missing, locked, read-only, or not a database. For a server, the text of the
    /// driver; if the driver is missing, the name of its Debian package.
    void Open(std::string_view connectionString, std::string_view userId = {},
              std::string_view password = {}, int options = -1);
    /// Rolls back an open transaction. Errors: 3704 if the connection is closed. The same holds for
    /// all members below.
    void Close();
    int State() const; ///< 0 closed, 1 open

    int ConnectionTimeout = 15; ///< seconds; read at Open
    int CommandTimeout = 30;    ///< seconds that a server may take for a statement; read at Open
    int CursorLocation = 2;     ///< 3: client-side; every recordset is a client-side copy

    /// The name of the database in use, without the folder or ending of an embedded file.
    std::string DefaultDatabase() const;
    /// The file of an embedded database, with its folder; empty on a database server.
    std::string DatabaseFile() const;

    /// Runs one statement. A query returns an open recordset, any other statement a closed one. The
    /// embedded engine refuses text after the first statement and then runs nothing. A server runs
    /// the whole text; the first result with rows is returned.
    Recordset Execute(std::string_view statement, int options = -1);

    /// Passes on the rows of a query block by block, so that a server's result of any size needs
    /// the memory of one block only. `take` must not use this connection.
    void ReadBlocks(std::string_view query, const BlockReader& take);

    /// Runs a statement once for each row, whose fields are its parameters. A server gets many rows
    /// in one round trip. After a failure some of the rows may have been stored. Requires: the
    /// caller has begun a transaction, so that a rollback can undo this.
    void ExecuteForEach(std::string_view statement, const ResultSet& rows);

    /// Errors: a transaction is open already; transactions cannot be nested. The embedded engine
    /// takes the write lock, and waits for it, with the first statement of the transaction.
    void BeginTrans();
    /// If it fails, the transaction stays open for `RollbackTrans`.
    void CommitTrans();
    /// Errors: no `BeginTrans` has run. If the engine has ended a transaction by itself, all
    /// statements fail until this is called, so that no part of an incomplete save can be
    /// committed.
    void RollbackTrans();

    /// Writes the contents of an embedded database's journal into its file, so that a copy of the
    /// file is complete. Does not wait: returns false, with something possibly left in the journal,
    /// if other sessions use the database or a transaction is open. On a server it does nothing and
    /// returns true.
    bool WriteBack();

    /// Is called with the text of each statement before it runs, those of row writes included.
    /// Transactions appear as "BeginTrans", "CommitTrans" and "RollbackTrans".
    std::function<void(std::string_view)> StatementObserver;

private:
    friend class Recordset;
    Session& OpenSession() const;

    EmbeddedSupport support_;
    std::shared_ptr<Session> session_;
};

} // namespace Quillane
