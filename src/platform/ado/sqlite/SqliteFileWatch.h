#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

struct sqlite3;

namespace Quillane {

/// Notices that the file of an open database, or one of its two journal files, has been moved,
/// deleted, replaced, or written over by another program. The session would go on writing into
/// files that nobody finds again, or mix two states of the database.
class SqliteFileWatch {
public:
    /// Takes note of the files as they are, once the session has read from them.
    /// Where the path is a link, the journal lies next to the file that it leads to.
    void Begin(sqlite3* session, const std::string& path);
    /// The same again, when this session has itself written into the file.
    void Renew();

    /// Fails, with a text that names the file, where one of the files is no longer the one that was
    /// noted.
    void RefuseOtherFiles() const;
    /// The same, and where the file has been written over in place: only within a transaction can
    /// that be distinguished from what another station has written. Takes note again.
    void RefuseOtherContents();

private:
    struct State {
        std::uint64_t device = 0;
        std::uint64_t number = 0; ///< with the device it identifies the file
        std::int64_t size = 0;
        std::int64_t writtenAt = 0;
        bool IsOfSameFile(const State& other) const {
            return device == other.device && number == other.number;
        }
    };
    static std::optional<State> StateOf(const std::string& path);
    unsigned DataVersion() const;
    bool IsWrittenOver() const;
    [[noreturn]] void Fail() const;

    sqlite3* session_ = nullptr;
    std::array<std::string, 3> paths_; ///< the file, its write-ahead log, the log's index
    std::array<std::optional<State>, 3> noted_;
    unsigned version_ = 0;
};

} // namespace Quillane
