#pragma once

#include "office/move/Move.h"
#include "setup/SqlServerTryOut.h"

#include <string>

namespace Quillane::Office {

/// A move of a station to a database on SQL Server.
struct MoveOrder {
    std::string stationFolder;
    std::string database;  ///< the file of the embedded database
    SqlServerTarget place; ///< as the station signs in
    OwnerSignIn owner{};   ///< who makes the schema, where the station's sign-in may not
};

/// Moves the station as `Move` does. What is missing of the schema is made first; last, the
/// station's sign-in is admitted and tried out.
std::optional<MovedStation> MoveToServer(const MoveOrder& order, LongWork& work);

/// The tables of dbo into which a script for SQL Server inserts rows.
std::set<std::string> TablesFilledBy(std::string_view script);

} // namespace Quillane::Office
