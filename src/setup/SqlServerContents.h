#pragma once

#include "setup/EmbeddedSchema.h"

#include <string>
#include <vector>

namespace Quillane {

class Connection;

/// The parts of a station's database that a database on SQL Server contains.
struct SqlServerContents {
    std::vector<std::string> missing; ///< tables and functions
    bool isEmpty = false;             ///< all of them are missing
    bool isComplete = false;          ///< nothing is missing, and there is a user of stations
    bool mayBeCreated = false;        ///< the user of the connection may create what is missing
    std::string collation;
    NewDatabase company; ///< only the company's particulars; empty if there are none
    long arrivals = 0;
    long users = 0;
};

/// Examines the database without changing it.
SqlServerContents LookAtSqlServerDatabase(Connection& connection);

} // namespace Quillane
