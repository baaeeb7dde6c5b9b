#pragma once

#include <string>

/// Texts about the schema version of a database: what was found, and what to do.
namespace Quillane {

/// For a version that is newer than the program's. `what` is the database or a file.
std::string NewerSchemaText(double version, const std::string& what = "the database");

/// For a version that cannot be read. The caller adds what to do.
std::string UnreadableSchemaText(const std::string& what = "the database");

/// For a version that is older than the program's. The caller adds what to do.
std::string OlderSchemaText(double version);

} // namespace Quillane
