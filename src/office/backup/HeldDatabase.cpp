#include "office/backup/HeldDatabase.h"

#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/host/Files.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Paths.h"

#include <filesystem>
#include <system_error>

namespace Quillane::Office {

namespace {

namespace fs = std::filesystem;

bool IsBusy(EmbeddedFile& session) {
    constexpr int primary = 0xFF;
    const int code = sqlite3_errcode(session.Session()) & primary;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

[[noreturn]] void FailInUse(const std::string& path) {
    throw Failure(FailureNumber::PathAccess,
                  "The database " + path +
                      " is in use. Nothing has been changed. Close every station and office that "
                      "uses it, then try again.");
}

[[noreturn]] void FailOnFullDisk(const std::string& path) {
    throw Failure(FailureNumber::PathAccess,
                  "The disk that holds the database " + path +
                      " is full. Nothing has been changed. Free some space on it, then try again.");
}

[[noreturn]] void FailToMove(const std::string& path, const std::error_code& error) {
    throw Failure(
        FailureNumber::PathAccess,
        path + ": " + error.message() +
            ". The database has not been changed. Check the rights of this user in the folder.");
}

/// Gives the file a second name. File systems without hard links get a copy instead.
void NameOld(const std::string& path, const std::string& name) {
    std::error_code error;
    fs::create_hard_link(PathOf(path), PathOf(name), error);
    if (error)
        fs::copy_file(PathOf(path), PathOf(name), error);
    if (error)
        FailToMove(name, error);
}

void MoveJournals(const std::string& path, const std::string& name) {
    for (const char* ending : {"-wal", "-shm", "-journal"}) {
        std::error_code error;
        if (FileExists(path + ending))
            fs::rename(PathOf(path + ending), PathOf(name + ending), error);
        if (error)
            FailToMove(path + ending, error);
    }
}

} // namespace

HeldDatabase::HeldDatabase(const std::string& path) : path_(path), exists_(FileExists(path)) {
    if (!exists_)
        return;
    session_ = std::make_unique<EmbeddedFile>(path, SQLITE_OPEN_READWRITE);
    try {
        Lock();
    } catch (const Failure&) {
        if (IsBusy(*session_))
            FailInUse(path);
        if (IsDiskFull(session_->Session()))
            FailOnFullDisk(path);
        session_.reset();
    }
}

// Leaving the write-ahead log mode fails while another session has the file open. A session that
// opens the file in between switches it back to that mode, and the second check reports it.
void HeldDatabase::Lock() {
    RegisterTextComparison(session_->Session());
    PrepareSqliteSession(session_->Session(), path_);
    sqlite3_busy_timeout(session_->Session(), 0);
    session_->Run("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
    if (session_->FirstText("PRAGMA journal_mode") != "delete")
        FailInUse(path_);
}

void HeldDatabase::ReplaceBy(const std::string& file, const std::string& nameOfOld) {
    if (exists_)
        NameOld(path_, nameOfOld);
    MoveJournals(path_, nameOfOld);
#ifdef _WIN32
    session_.reset(); // Windows cannot replace an open file
#endif
    std::error_code error;
    fs::rename(PathOf(file), PathOf(path_), error);
    if (error) {
        std::error_code ignored;
        fs::remove(PathOf(nameOfOld), ignored);
        FailToMove(path_, error);
    }
    FlushToDisk(PathOf(path_).parent_path().string());
    session_.reset();
}

} // namespace Quillane::Office
