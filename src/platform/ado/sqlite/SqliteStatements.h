#pragma once

#include "platform/ado/Value.h"
#include "platform/ado/sqlite/SqliteSecret.h"

#include <list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace Quillane {

/// The cache of prepared statements: preparing one takes longer than finding a row by
/// its key. Statements that differ only in a whole number at their end ("... Where ArrivalId =
/// 1042") share one entry, with a parameter for the number.
///
/// A change of the schema by any session is detected when a statement is stepped.
class SqliteStatements {
public:
    /// The secret checks each statement that is prepared. Requires: it outlives the cache.
    SqliteStatements(sqlite3* database, const SqliteSecret& secret)
        : database_(database), secret_(secret) {}

    struct Reset {
        void operator()(sqlite3_stmt* statement) const;
    };
    /// A statement that is bound and not stepped yet. The deleter returns it to the cache.
    using Ready = std::unique_ptr<sqlite3_stmt, Reset>;

    /// The T-SQL statement with the values of its parameters. Errors: SQLite's message; an empty
    /// text, more than one statement, or a wrong number of values.
    Ready Take(std::string_view statement, std::span<const Value> values = {});

private:
    struct Finish {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finish>;
    struct Kept {
        std::string text;
        Statement statement;
    };

    static Ready Bind(sqlite3_stmt* statement, std::span<const Value> values);
    sqlite3_stmt* Find(std::string_view text);
    sqlite3_stmt* Keep(std::string_view text);
    Statement Prepare(const std::string& text);

    sqlite3* database_;
    const SqliteSecret& secret_;
    std::list<Kept> kept_; ///< the most recently used one first
    std::unordered_map<std::string_view, std::list<Kept>::iterator> places_;
};

} // namespace Quillane
