#pragma once

#include <sqlite3.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace Quillane {

/// A bare session on an embedded database's file, for making and judging one before `Con` opens it.
/// Every refusal is a Failure with the engine's own words.
class EmbeddedFile {
public:
    EmbeddedFile(const std::string& file, int openFlags);
    ~EmbeddedFile() { sqlite3_close(session_); }
    EmbeddedFile(const EmbeddedFile&) = delete;
    EmbeddedFile& operator=(const EmbeddedFile&) = delete;

    /// Leaves what lies in the journal there: by itself the last session to close a file brings it
    /// into the file.
    void LeaveJournal() {
        sqlite3_db_config(session_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    void Run(const char* script);
    /// Runs one statement with texts and numbers for its question marks.
    void Run(const char* statement, std::initializer_list<std::string_view> values);
    /// The first cell of the first row as text; empty for Null and where there is no row.
    std::string FirstText(const char* query);
    long FirstNumber(const char* query);
    /// For what else the engine offers; valid as long as this.
    sqlite3* Session() { return session_; }

private:
    class Statement;
    void Check(int outcome);

    sqlite3* session_ = nullptr;
};

} // namespace Quillane
