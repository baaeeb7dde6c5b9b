#include "platform/ado/sqlite/SqliteFileWatch.h"

#include "platform/ado/AdoFailure.h"

#include <sqlite3.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace Quillane {

void SqliteFileWatch::Begin(sqlite3* session, const std::string& path) {
    session_ = session;
    const std::string file = sqlite3_db_filename(session, "main");
    paths_ = {path, file + "-wal", file + "-shm"};
    Renew();
}

// In this order: a change by another station between the two leads to a newer version or to a log
// with contents, and then the time of the file is not used.
void SqliteFileWatch::Renew() {
    version_ = DataVersion();
    for (std::size_t file = paths_.size(); file-- > 0;)
        noted_[file] = StateOf(paths_[file]);
}

#ifndef _WIN32
std::optional<SqliteFileWatch::State> SqliteFileWatch::StateOf(const std::string& path) {
    struct stat found {};
    if (::stat(path.c_str(), &found) != 0)
        return std::nullopt;
    constexpr std::int64_t second = 1'000'000'000;
    return State{found.st_dev, found.st_ino, found.st_size,
                 found.st_mtim.tv_sec * second + found.st_mtim.tv_nsec};
}
#else
// On Windows an open file can be neither moved nor deleted, nor opened by a program that replaces
// it.
std::optional<SqliteFileWatch::State> SqliteFileWatch::StateOf(const std::string&) {
    return State{};
}
#endif

unsigned SqliteFileWatch::DataVersion() const {
    unsigned version = 0;
    sqlite3_file_control(session_, "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return version;
}

void SqliteFileWatch::RefuseOtherFiles() const {
    for (std::size_t file = 0; file < paths_.size(); ++file) {
        if (!noted_[file])
            continue;
        const std::optional<State> now = StateOf(paths_[file]);
        if (!now || !now->IsOfSameFile(*noted_[file]))
            Fail();
    }
}

void SqliteFileWatch::RefuseOtherContents() {
    RefuseOtherFiles();
    if (IsWrittenOver())
        Fail();
    Renew();
}

// A session writes into the file only what was in a log, and each entry in the log is a new
// version. If neither has changed, another program has written the file.
bool SqliteFileWatch::IsWrittenOver() const {
    const auto& [file, log, index] = noted_;
    if (!file || !log || log->size > 0 || DataVersion() != version_)
        return false;
    const std::optional<State> now = StateOf(paths_[0]);
    return !now || now->size != file->size || now->writtenAt != file->writtenAt;
}

void SqliteFileWatch::Fail() const {
    FailDatabase("The database file " + paths_[0] +
                 " has been moved, deleted or replaced since this station opened it, so nothing is "
                 "saved any more.\nPut it back with its files -wal and -shm, or note down what is "
                 "on the screen and start the program again.");
}

} // namespace Quillane
