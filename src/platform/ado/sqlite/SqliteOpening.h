#pragma once

#include <string>

struct sqlite3;

namespace Quillane {

/// Opens the file for a station, and sets the session up: foreign keys on, a write-ahead log, every
/// commit on the disk. Each of these fails with a text that names the file.
sqlite3* OpenSqliteFile(const std::string& path);

/// Where a write-ahead log with contents was left next to the file, both are looked through: a log
/// of another state of the database - of before a copy was put back - would be mixed into it. Such
/// a one is refused, and neither file is touched.
///
/// The session has its busy handler and its functions already.
void PrepareSqliteSession(sqlite3* session, const std::string& path);

/// What the engine says of its last refusal; of a full disk that, however it came up.
std::string SqliteWords(sqlite3* session);

} // namespace Quillane
