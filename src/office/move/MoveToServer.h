#pragma once

#include "office/move/Move.h"
#include "setup/SqlServerTryOut.h"

#include <string>

namespace Quillane::Office {

/// A move of a station to a database on SQL Server.
struct MoveOrder {
    std::string stationFolder;
    std::string database;  ///< the file of the embedded database
    SqlServerTarget place; ///< with the station's sign-in
    OwnerSignIn owner{};   ///< the sign-in that creates the schema, if the station's may not
};

/// Moves the station as `Move` does. The missing parts of the schema are created first; at the end
/// the station's sign-in gets its rights and is tested.
std::optional<MovedStation> MoveToServer(const MoveOrder& order, LongWork& work);

/// The tables of dbo into which a script for SQL Server inserts rows.
std::set<std::string> TablesFilledBy(std::string_view script);

} // namespace Quillane::Office
