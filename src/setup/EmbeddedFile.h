#pragma once

#include <sqlite3.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace Quillane {

/// A SQLite session on the file of an embedded database, for creating or examining it before `Con`
/// opens it. Errors: a Failure with the message of SQLite.
class EmbeddedFile {
public:
    EmbeddedFile(const std::string& file, int openFlags);
    ~EmbeddedFile() { sqlite3_close(session_); }
    EmbeddedFile(const EmbeddedFile&) = delete;
    EmbeddedFile& operator=(const EmbeddedFile&) = delete;

    /// Keeps the journal when this session closes. By default the last session that closes a file
    /// writes the journal back into it.
    void LeaveJournal() {
        sqlite3_db_config(session_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    void Run(const char* script);
    /// Runs one statement with the values of its parameters.
    void Run(const char* statement, std::initializer_list<std::string_view> values);
    /// The first cell of the first row as text; empty if it is Null or if there is no row.
    std::string FirstText(const char* query);
    long FirstNumber(const char* query);
    /// The handle, for other functions of SQLite. Valid during the lifetime of this object.
    sqlite3* Session() { return session_; }

private:
    class Statement;
    void Check(int outcome);

    sqlite3* session_ = nullptr;
};

} // namespace Quillane
