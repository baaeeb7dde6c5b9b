#pragma once

#include "office/move/Move.h"

#include <string>
#include <vector>

namespace Quillane::Office {

/// A PostgreSQL server as the target of a move: the tables of an embedded database with their keys,
/// and some rows that their creation stores, as on SQL Server.
class PostgresTarget {
public:
    /// Reads the tables of the file. Requires: the file is not locked.
    PostgresTarget(const std::string& file, std::string connectionString, std::string folder);

    MoveServer Connect() const;
    /// Creates the missing tables.
    void MakeSchema(Connection& connection) const;

    /// The contents of the station's Config.ini after the move.
    static constexpr const char* Config = "Server=books;Database=Account1\n";
    static MoveDialect Dialect() {
        return {.schema = {}, .opening = {}, .closing = {}, .textType = "varchar"};
    }

private:
    std::vector<std::string> statements_;
    std::string connectionString_;
    std::string folder_; ///< of the station
};

} // namespace Quillane::Office
