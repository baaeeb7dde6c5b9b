#pragma once

/// The scripts of the folder database, compiled into the program.
namespace Quillane::EmbeddedScripts {

extern const char* const Schema;
extern const char* const SampleRows;
extern const char* const UpgradeTo1;
extern const char* const UpgradeTo2;

// For SQL Server, in batches.
extern const char* const SqlServerSchema;
extern const char* const SqlServerSampleRows;
extern const char* const SqlServerRoles;
extern const char* const SqlServerGuards;
extern const char* const SqlServerUpgradeTo1;
extern const char* const SqlServerUpgradeTo2;

} // namespace Quillane::EmbeddedScripts
