#pragma once

struct sqlite3;

namespace Quillane {

/// Makes the collation `QTEXT` and the function behind `Like` known to a session.
void RegisterTextComparison(sqlite3* database);

} // namespace Quillane
