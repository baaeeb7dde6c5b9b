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

/// What the embedded engine needs from above: where its files lie, which SQL functions it is to
/// know, and what is to be done while it waits.
struct EmbeddedSupport {
    std::string folder{};                              ///< of the database files
    std::function<void(sqlite3*)> registerFunctions{}; ///< runs on each new session
    std::chrono::milliseconds busyWait{30'000};        ///< for whoever holds the file's lock
    /// Begins such a wait in another form; nothing is shown without it.
    std::function<std::unique_ptr<LockWait>()> waitForLock{};
    /// Runs after each change that this session has stored: `WriteBack` has something to do.
    std::function<void()> afterChange{};

    /// A column that one statement alone may read, as it is written here to the letter. No other
    /// statement may join its table with another.
    struct Secret {
        std::string table{};
        std::string column{};
        std::string reader{};
    };
    Secret secret{};
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
    /// `(embedded)` selects the embedded engine, whose file `<folder>/<Database>.db` must be there:
    /// a file that is missing, locked, write-protected or no database fails with a text that names
    /// it. Any other server is reached through the string's ODBC driver, and what that refuses
    /// fails in its words; a driver that is missing fails with the Debian package that brings it.
    /// Opening an open connection fails (3705).
    void Open(std::string_view connectionString, std::string_view userId = {},
              std::string_view password = {}, int options = -1);
    /// What an open transaction has done is undone. Closing a closed connection fails (3704), as
    /// does every member below.
    void Close();
    int State() const; ///< 0 closed, 1 open

    int ConnectionTimeout = 15; ///< seconds; read at Open
    int CommandTimeout = 30;    ///< seconds a server may take over a statement; read at Open
    int CursorLocation = 2;     ///< 3: client-side; every recordset is a client-side copy

    /// The name of the database in use, without the folder or ending of an embedded file.
    std::string DefaultDatabase() const;
    /// The file of an embedded database, with its folder; empty on a database server.
    std::string DatabaseFile() const;

    /// Runs one statement; a query gives an open recordset, anything else a closed one. On the
    /// embedded engine text behind the first statement is a failure, and then nothing has run; a
    /// server runs all of it, and the first result with rows is the one that is given.
    Recordset Execute(std::string_view statement, int options = -1);

    /// Gives the rows of a query block by block, so that a server's result of any size takes the
    /// memory of one block. `take` must not use this connection.
    void ReadBlocks(std::string_view query, const BlockReader& take);

    /// Runs a statement once for each row, whose fields are its parameters; on a server with many
    /// rows in one round trip. Where it fails, some of the rows may have been stored: only a
    /// rollback of the transaction that the caller has begun undoes that.
    void ExecuteForEach(std::string_view statement, const ResultSet& rows);

    /// Transactions don't nest: a second one fails. The embedded engine takes the write lock with
    /// the first statement behind it, and waits for it.
    void BeginTrans();
    /// Where it fails, the transaction stays open for `RollbackTrans`.
    void CommitTrans();
    /// Fails only where no `BeginTrans` has run. Once the engine has ended a transaction by itself,
    /// every further statement fails until this is called: nothing of a broken save is ever
    /// committed piece by piece.
    void RollbackTrans();

    /// Brings what lies in the journal of an embedded database into its file, so that a copy of the
    /// file alone is complete. Waits for nobody: false where others are at work in the database, or
    /// a transaction is open, so that something may be left. True at once on a server.
    bool WriteBack();

    /// Sees every statement text that runs, in its order, before it runs: those of the callers, and
    /// those of row writes. Transactions appear as "BeginTrans", "CommitTrans", "RollbackTrans".
    std::function<void(std::string_view)> StatementObserver;

private:
    friend class Recordset;
    Session& OpenSession() const;

    EmbeddedSupport support_;
    std::shared_ptr<Session> session_;
};

} // namespace Quillane
