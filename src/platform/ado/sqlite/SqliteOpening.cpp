#include "platform/ado/sqlite/SqliteOpening.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteFile.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstring>

namespace Quillane {

namespace {

int PrimaryCode(int code) {
    return code & 0xFF;
}

// In a folder that is read-only the log cannot be created.
bool IsReadOnly(sqlite3* session) {
    const int code = PrimaryCode(sqlite3_errcode(session));
    const int systemCode = sqlite3_system_errno(session);
    return sqlite3_db_readonly(session, "main") == 1 || code == SQLITE_READONLY ||
           (code == SQLITE_CANTOPEN && (systemCode == EACCES || systemCode == EROFS));
}

int Run(sqlite3* session, const char* statements) {
    return sqlite3_exec(session, statements, nullptr, nullptr, nullptr);
}

[[noreturn]] void FailToUse(sqlite3* session, const std::string& path) {
    switch (PrimaryCode(sqlite3_errcode(session))) {
    case SQLITE_NOTADB:
        FailDatabase("The file " + path + " is not a database.");
    case SQLITE_BUSY:
        FailDatabase("The database file " + path + " is locked by another program.");
    default:
        break;
    }
    if (IsDiskFull(session))
        FailDatabase("The disk that holds the database file " + path +
                     " is full. Free some space on it, then start the program again.");
    if (IsReadOnly(session))
        FailReadOnly(path);
    FailDatabase("The database file " + path + " cannot be used: " + SqliteMessage(session) + ".");
}

int IsOk(void* answer, int, char** cells, char**) {
    *static_cast<bool*>(answer) = std::strcmp(cells[0], "ok") == 0;
    return 0;
}

int IsNoRow(void* answer, int, char**, char**) {
    *static_cast<bool*>(answer) = false;
    return 0;
}

/// False only if the contents are inconsistent. A file that cannot be read counts as sound.
bool IsSound(sqlite3* session) {
    bool isWhole = true;
    bool refersWell = true;
    const int outcome = sqlite3_exec(session, "PRAGMA integrity_check(1)", IsOk, &isWhole, nullptr);
    sqlite3_exec(session, "PRAGMA foreign_key_check", IsNoRow, &refersWell, nullptr);
    const int code = PrimaryCode(outcome);
    return isWhole && refersWell && code != SQLITE_CORRUPT && code != SQLITE_NOTADB;
}

/// Checks the file without its log.
bool IsSoundWithoutLog(const std::string& path) {
    sqlite3* session = nullptr;
    constexpr int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    const int outcome = sqlite3_open_v2(ImmutableUri(path).c_str(), &session, flags, nullptr);
    const bool isSound = outcome == SQLITE_OK && IsSound(session);
    sqlite3_close(session);
    return isSound;
}

[[noreturn]] void FailOnLog(const std::string& path) {
    const std::string files = path + "-wal and " + path + "-shm";
    if (IsSoundWithoutLog(path))
        FailDatabase("The journal " + path + "-wal does not belong to the database file " + path +
                     ": it belongs to an earlier state of the database, before a copy replaced "
                     "it. Please move " +
                     files + " to another folder and start the program again.");
    FailDatabase("The database file " + path +
                 " is damaged. Please put the last backup in its place, move " + files +
                 " to another folder and start the program again.");
}

// A program that replaces the file holds the lock while it does so. The first read takes a lock for
// this session, and from then on no program can replace the file.
void RefuseReplacedFile(sqlite3* session, const std::string& path) {
    int hasMoved = 0;
    sqlite3_file_control(session, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved != 0)
        FailDatabase("The database file " + path +
                     " was replaced while it was being opened. Please start the program again.");
}

void KeepLogAtClose(sqlite3* session, bool keeps) {
    sqlite3_db_config(session, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keeps ? 1 : 0, nullptr);
}

} // namespace

// The index of the log cannot grow on a full disk, and the engine then reports a device error. The
// system's error number is that of the last failure, which may be an old one.
bool IsDiskFull(sqlite3* session) {
    const int code = PrimaryCode(sqlite3_errcode(session));
    const int systemCode = sqlite3_system_errno(session);
    return code == SQLITE_FULL || ((code == SQLITE_IOERR || code == SQLITE_CANTOPEN) &&
                                   (systemCode == ENOSPC || systemCode == EDQUOT));
}

std::string SqliteMessage(sqlite3* session) {
    return IsDiskFull(session) ? sqlite3_errstr(SQLITE_FULL) : sqlite3_errmsg(session);
}

sqlite3* OpenSqliteFile(const std::string& path) {
    sqlite3* session = nullptr;
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int outcome = sqlite3_open_v2(path.c_str(), &session, flags, nullptr);
    if (outcome == SQLITE_OK)
        return session;
    const bool hasNoRights = sqlite3_system_errno(session) == EACCES;
    sqlite3_close(session);
    if (hasNoRights)
        FailDatabase("The database file " + path +
                     " cannot be read. Check the rights of this user.");
    FailDatabase("The database file " + path + " cannot be opened: " + sqlite3_errstr(outcome) +
                 ".");
}

// The first read shows whether the file is a database and whether another program holds it.
void PrepareSqliteSession(sqlite3* session, const std::string& path) {
    sqlite3_db_config(session, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    // If the path is a link, the log is in the folder of its target.
    const std::string file = sqlite3_db_filename(session, "main");
    const bool hasLog = HasLogWithContents(file);
    KeepLogAtClose(session, hasLog);
    const int outcome =
        Run(session, "PRAGMA foreign_keys=ON; PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; "
                     "SELECT count(*) FROM sqlite_schema");
    const bool isMixed = PrimaryCode(outcome) == SQLITE_CORRUPT ||
                         (outcome == SQLITE_OK && hasLog && !IsSound(session));
    if (hasLog && isMixed)
        FailOnLog(file);
    if (outcome != SQLITE_OK || sqlite3_db_readonly(session, "main") == 1)
        FailToUse(session, path);
    RefuseReplacedFile(session, path);
    KeepLogAtClose(session, false);
}

} // namespace Quillane
