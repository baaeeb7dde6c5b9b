#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

struct sqlite3;

namespace Quillane {

/// Detects that the file of an open database, or one of its two journal files, was moved, deleted,
/// replaced, or overwritten by another program. The session would otherwise write into files that
/// are lost, or mix two states of the database.
class SqliteFileWatch {
public:
    /// Records the state of the files. Requires: the session has read from them. If the path is a
    /// link, the journal is in the folder of its target.
    void Begin(sqlite3* session, const std::string& path);
    /// Records the state again after this session has written into the file.
    void Renew();

    /// Errors: one of the files is not the recorded one; the text names the file.
    void RefuseOtherFiles() const;
    /// The same, and also if the file was overwritten in place, which only within a transaction can
    /// be distinguished from the writes of another station. Records the state again.
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
