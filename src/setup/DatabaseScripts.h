#pragma once

/// The scripts of the folder `database`, compiled into the program.
namespace Quillane::DatabaseScripts {

extern const char* const EmbeddedSchema;
extern const char* const EmbeddedSampleRows;
extern const char* const EmbeddedUpgradeTo1;
extern const char* const EmbeddedUpgradeTo2;

// For SQL Server, in batches.
extern const char* const SqlServerSchema;
extern const char* const SqlServerSampleRows;
extern const char* const SqlServerRoles;
extern const char* const SqlServerGuards;
extern const char* const SqlServerUpgradeTo1;
extern const char* const SqlServerUpgradeTo2;

} // namespace Quillane::DatabaseScripts
