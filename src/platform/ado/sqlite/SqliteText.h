#pragma once

struct sqlite3;

namespace Quillane {

/// Registers the collation `QTEXT` and the function of `Like` in a session.
void RegisterTextComparison(sqlite3* database);

} // namespace Quillane
