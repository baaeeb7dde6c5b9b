#pragma once

/// The scripts of database/embedded, compiled into the program.
namespace Quillane::EmbeddedScripts {

extern const char* const Schema;
extern const char* const SampleRows;
extern const char* const UpgradeTo1;

} // namespace Quillane::EmbeddedScripts
