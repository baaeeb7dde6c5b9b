#include "office/backup/OnlineCopy.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteFile.h"
#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/runtime/LongWork.h"
#include "setup/EmbeddedFile.h"

#include <memory>

namespace Quillane::Office {

namespace {

constexpr int busyMilliseconds = 30'000;
constexpr int pagesInOneStep = 256; ///< a megabyte with the default page size

struct EndBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

/// Requires: the source is in a read transaction, which blocks no station. Without it the copy
/// would start again after each save.
void CopyPages(EmbeddedFile& source, EmbeddedFile& target, LongWork& work) {
    const std::unique_ptr<sqlite3_backup, EndBackup> backup(
        sqlite3_backup_init(target.Session(), "main", source.Session(), "main"));
    if (!backup)
        FailDatabase(SqliteMessage(target.Session()));
    for (int outcome = SQLITE_OK; outcome != SQLITE_DONE;) {
        outcome = sqlite3_backup_step(backup.get(), pagesInOneStep);
        if (outcome != SQLITE_OK && outcome != SQLITE_DONE)
            FailDatabase(sqlite3_errstr(outcome));
        const int pages = sqlite3_backup_pagecount(backup.get());
        if (work.Parts() != pages)
            work.Begin(work.Step(), pages);
        if (!work.Advance(pages - sqlite3_backup_remaining(backup.get())))
            throw Cancelled();
    }
}

/// Turns off the write-ahead log mode of the copy; otherwise opening it would create more files.
/// The exclusive locking mode avoids the index of the log, which some file systems do not support.
void MakeSelfContained(const std::string& copy) {
    EmbeddedFile file(copy, SQLITE_OPEN_READWRITE);
    file.Run("PRAGMA locking_mode = EXCLUSIVE; PRAGMA synchronous = OFF");
    if (file.FirstText("PRAGMA journal_mode = DELETE") != "delete")
        FailDatabase("The journal of the copy " + copy + " cannot be turned off. Try again.");
}

} // namespace

Contents CopyOnline(const std::string& database, const std::string& copy, LongWork& work) {
    work.Begin("Copying " + database);
    Contents contents;
    {
        EmbeddedFile source(database, SQLITE_OPEN_READWRITE);
        sqlite3_busy_timeout(source.Session(), busyMilliseconds);
        RegisterTextComparison(source.Session());
        PrepareSqliteSession(source.Session(), database);
        source.Run("BEGIN");
        contents = ContentsOf(source);
        EmbeddedFile target(copy, SQLITE_OPEN_READWRITE);
        // Faster, and safe: an incomplete copy is removed, and a complete one is flushed at the
        // end.
        target.Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        CopyPages(source, target, work);
    }
    MakeSelfContained(copy);
    return contents;
}

} // namespace Quillane::Office
