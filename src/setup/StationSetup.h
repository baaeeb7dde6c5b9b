#pragma once

#include "setup/EmbeddedSchema.h"
#include "setup/SqlServerTarget.h"

#include <string>

/// Writes the files of a first start into the station folder: the database, the company name in
/// `Station.ini`, and last `Config.ini`, which marks the set-up as complete.
namespace Quillane {

/// The eighth character is the company number.
inline constexpr const char* EmbeddedDatabaseName = "Account1";

/// The path of the embedded database in this folder.
std::string EmbeddedDatabasePath(const std::string& folder);

/// Creates the database and writes `Config.ini` for it.
void SetUpStation(const std::string& folder, const NewDatabase& particulars);

/// Writes `Config.ini` for the existing database. `companyName` is the name in the database; a
/// station without a company name gets it.
void AdoptDatabase(const std::string& folder, const std::string& companyName);

/// Writes `Config.ini` for a prepared database on SQL Server. `newName` is the entered name of the
/// company; it is empty if the database has a name, which is `storedName`. A station without a
/// company name gets that one.
void PointToSqlServer(const std::string& folder, const SqlServerTarget& target,
                      const std::string& newName, const std::string& storedName);

} // namespace Quillane
