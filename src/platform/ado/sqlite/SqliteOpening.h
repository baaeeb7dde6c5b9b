#pragma once

#include <string>

struct sqlite3;

namespace Quillane {

/// Opens the file for a station and prepares the session: foreign keys on, a write-ahead log, and
/// every commit flushed to the disk. Errors: the text names the file.
sqlite3* OpenSqliteFile(const std::string& path);

/// If there is a write-ahead log with contents, both files are checked: a log of an earlier state
/// of the database, before a copy replaced it, would corrupt it. Such a log is refused, and neither
/// file is changed.
///
/// Requires: the session has its busy handler and its functions.
void PrepareSqliteSession(sqlite3* session, const std::string& path);

/// True if the last failure of the session was caused by a full disk or a quota.
bool IsDiskFull(sqlite3* session);

/// The engine's message for its last failure. A full disk is always reported as such.
std::string SqliteMessage(sqlite3* session);

} // namespace Quillane
