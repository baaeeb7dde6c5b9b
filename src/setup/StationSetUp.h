#pragma once

#include "setup/EmbeddedSchema.h"
#include "setup/SqlServerPlace.h"

#include <string>

/// What a first start leaves in the station's folder: the database, the company's name in
/// `Station.ini`, and last `Config.ini`, whose being there says that the set-up is complete.
namespace Quillane {

/// The eighth character is the company's number.
inline constexpr const char* EmbeddedDatabaseName = "Account1";

/// The file of the embedded database in this folder.
std::string EmbeddedDatabasePath(const std::string& folder);

/// Makes the database and points the station to it.
void SetUpStation(const std::string& folder, const NewDatabase& particulars);

/// Points the station to the database that is there already. `companyName` is the name that the
/// database holds; it becomes the station's where the station has none.
void AdoptDatabase(const std::string& folder, const std::string& companyName);

/// Points the station to a database on SQL Server that is ready for it. `newName` is the company's
/// name that was given for a database without one; empty where the database has its own, which is
/// `storedName` and becomes the station's where the station has none.
void PointToSqlServer(const std::string& folder, const SqlServerPlace& place,
                      const std::string& newName, const std::string& storedName);

} // namespace Quillane
