#pragma once

#include "office/move/SourceDatabase.h"
#include "platform/ado/Connection.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// The differences between kinds of servers.
struct MoveDialect {
    std::string schema;         ///< precedes the name of a table: "dbo."
    std::string opening;        ///< quote of a name
    std::string closing;        ///< the same
    std::string textType;       ///< the type of a text column, without its length
    bool hasIdentities = false; ///< supports IDENTITY_INSERT and DBCC CHECKIDENT
};

MoveDialect DialectOfSqlServer();

/// The database on a server to which the rows of an embedded one are moved.
///
/// During a move, the table StationMove there names the database that is moved.
class TargetDatabase {
public:
    TargetDatabase(Connection& connection, MoveDialect dialect)
        : connection_(connection), dialect_(std::move(dialect)) {}

    bool Has(const std::string& table);
    long CountOf(const std::string& table);
    /// The columns of the source that the table does not have.
    std::vector<std::string> MissingColumns(const SourceTable& table);

    /// The database whose unfinished move has left its rows here; empty if there is none.
    std::string UnfinishedMove();
    void BeginMove(const std::string& ofDatabase);
    void EndMove();

    void Clear(const std::string& table);
    /// Stores rows, all or none. Errors: the text names the row that the server refuses; `before`
    /// rows of the table have been stored before these.
    void Insert(const SourceTable& table, const ResultSet& block, long before);
    void Read(const SourceTable& table, const BlockReader& take);

    // Called before and after the inserts into one table: its numbers are stored unchanged, and the
    // next number of the server is larger than all that have ever been assigned.
    void BeginNumbers(const SourceTable& table);
    void EndNumbers(const SourceTable& table);

private:
    std::string Quoted(const std::string& name) const;
    std::string Named(const std::string& table) const;
    std::string ColumnList(const SourceTable& table) const;
    std::string InsertStatement(const SourceTable& table) const;
    bool NumbersItself(const SourceTable& table);
    [[noreturn]] void FailOnRow(const SourceTable& table, const ResultSet& block, long before,
                                const std::string& words);
    int RefusedRow(const SourceTable& table, const ResultSet& block, std::string& words);

    Connection& connection_;
    MoveDialect dialect_;
};

} // namespace Quillane::Office
