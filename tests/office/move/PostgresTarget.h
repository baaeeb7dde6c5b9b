#pragma once

#include "office/move/Move.h"

#include <string>
#include <vector>

namespace Quillane::Office {

/// A PostgreSQL server as the target of a move: the tables of an embedded database with their keys,
/// and some rows that making them stores, as on SQL Server.
class PostgresTarget {
public:
    /// Reads the tables of the file, which nobody may hold.
    PostgresTarget(const std::string& file, std::string connectionString, std::string folder);

    MoveServer Connect() const;
    /// Makes what is missing of the tables.
    void MakeSchema(Connection& connection) const;

    /// What the station's Config.ini holds after the move.
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
