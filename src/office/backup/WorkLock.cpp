#include "office/backup/WorkLock.h"

#include "office/backup/BackupFiles.h"
#include "platform/host/Files.h"
#include "platform/host/PrivateFile.h"
#include "platform/runtime/Failure.h"

namespace Quillane::Office {

namespace {

void MakeLockFile(const std::string& file, const std::string& database) {
    if (FileExists(file))
        return;
    MakePrivateFile(file);
    CopyPermissions(database, file);
}

[[noreturn]] void FailUnderWay(const std::string& database) {
    throw Failure(FailureNumber::PathAccess,
                  "Another backup or restore of " + database +
                      " is running. Wait until it has ended, then try again.");
}

} // namespace

// SQLite uses the file locks of each operating system. Nothing is ever written to the file.
WorkLock::WorkLock(const std::string& database) {
    const std::string file = database + ".lock";
    constexpr int primary = 0xFF;
    try {
        MakeLockFile(file, database);
        file_ = std::make_unique<EmbeddedFile>(file, SQLITE_OPEN_READWRITE);
        sqlite3_busy_timeout(file_->Session(), 0);
        file_->Run("PRAGMA journal_mode = MEMORY; BEGIN EXCLUSIVE");
    } catch (const Failure& failure) {
        if (file_ && (sqlite3_errcode(file_->Session()) & primary) == SQLITE_BUSY)
            FailUnderWay(database);
        throw Failure(FailureNumber::PathAccess,
                      "The file " + file + " cannot be used (" + failure.Description() +
                          "). Check the rights of this user in the folder.");
    }
}

} // namespace Quillane::Office
