#pragma once

#include "setup/EmbeddedSchema.h"

#include <string>
#include <vector>

namespace Quillane {

class Connection;

/// What a database on SQL Server holds of a station's.
struct SqlServerContents {
    std::vector<std::string> missing; ///< tables and functions
    bool isEmpty = false;             ///< all of them are missing
    bool isComplete = false;          ///< nothing is missing, and somebody can sign in
    bool mayBeMade = false;           ///< by whoever has looked
    std::string collation;
    NewDatabase company; ///< the company's particulars alone; empty where there is none
    long arrivals = 0;
    long users = 0;
};

/// Looks without changing anything.
SqlServerContents LookAtSqlServerDatabase(Connection& connection);

} // namespace Quillane
