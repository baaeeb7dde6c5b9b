#include "office/backup/HeldDatabase.h"

#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteText.h"
#include "platform/host/Files.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"

#include <filesystem>
#include <system_error>

namespace Quillane::Office {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

bool IsBusy(EmbeddedFile& session) {
    constexpr int primary = 0xFF;
    const int code = sqlite3_errcode(session.Session()) & primary;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

[[noreturn]] void FailInUse(const std::string& path) {
    throw Failure(FailureNumber::PathAccess,
                  "The database " + path +
                      " is in use. Please close every station and office that works on it, and try "
                      "again. Nothing has been changed.");
}

[[noreturn]] void FailToMove(const std::string& path, const std::error_code& error) {
    throw Failure(
        FailureNumber::PathAccess,
        path + ": " + error.message() +
            ". Please check this user's rights in the folder. The database is as it was.");
}

/// The second name of one file. Some file systems know no such thing: there the file is moved.
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
        Take();
    } catch (const Failure&) {
        if (IsBusy(*session_))
            FailInUse(path);
        session_.reset();
    }
}

// A session with a write-ahead log keeps a lock as long as it lasts, so that the log is left only
// where there is no other. One that comes after that brings the log back before it is locked out.
void HeldDatabase::Take() {
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
    session_.reset(); // a file that is open cannot be replaced there
#endif
    std::error_code error;
    fs::rename(PathOf(file), PathOf(path_), error);
    if (error) {
        std::error_code ignored;
        fs::remove(PathOf(nameOfOld), ignored);
        FailToMove(path_, error);
    }
    BringToDisk(PathOf(path_).parent_path().string());
    session_.reset();
}

} // namespace Quillane::Office
