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

/// The statements that a session ran last, prepared: preparing takes longer than finding a row by
/// its key. Those that differ only in the whole number they compare with at their end ("... Where
/// ArrivalId = 1042") are one statement with a parameter.
///
/// A change of the schema, from whatever session, is found out when a statement is stepped.
class SqliteStatements {
public:
    /// The secret judges each statement that is prepared, and outlives this.
    SqliteStatements(sqlite3* database, const SqliteSecret& secret)
        : database_(database), secret_(secret) {}

    struct Reset {
        void operator()(sqlite3_stmt* statement) const;
    };
    /// Bound and not stepped yet; goes back to the others when it is let go.
    using Ready = std::unique_ptr<sqlite3_stmt, Reset>;

    /// The T-SQL statement with the values of its parameters. What SQLite refuses fails in its
    /// words, and so do an empty text, more than one statement, and a wrong number of values.
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
    std::list<Kept> kept_; ///< the last one used in front
    std::unordered_map<std::string_view, std::list<Kept>::iterator> places_;
};

} // namespace Quillane
