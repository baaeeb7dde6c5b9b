#include "setup/EmbeddedFile.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/runtime/Failure.h"

namespace Quillane {

class EmbeddedFile::Statement {
public:
    Statement(EmbeddedFile& file, const char* text) : file_(file) {
        file_.Check(sqlite3_prepare_v2(file.session_, text, -1, &handle_, nullptr));
    }
    ~Statement() { sqlite3_finalize(handle_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void Bind(int place, std::string_view text) {
        file_.Check(sqlite3_bind_text(handle_, place, text.data(), static_cast<int>(text.size()),
                                      SQLITE_TRANSIENT));
    }
    bool Step() {
        const int outcome = sqlite3_step(handle_);
        if (outcome != SQLITE_ROW && outcome != SQLITE_DONE)
            file_.Check(outcome);
        return outcome == SQLITE_ROW;
    }
    std::string Text() {
        const unsigned char* text = sqlite3_column_text(handle_, 0);
        return text ? reinterpret_cast<const char*>(text) : std::string();
    }
    long Number() { return static_cast<long>(sqlite3_column_int64(handle_, 0)); }

private:
    EmbeddedFile& file_;
    sqlite3_stmt* handle_ = nullptr;
};

EmbeddedFile::EmbeddedFile(const std::string& file, int openFlags) {
    const int outcome = sqlite3_open_v2(file.c_str(), &session_, openFlags, nullptr);
    if (outcome != SQLITE_OK) {
        const std::string description =
            std::string(session_ ? sqlite3_errmsg(session_) : sqlite3_errstr(outcome)) + ": " +
            file;
        sqlite3_close(session_);
        throw Failure(FailureNumber::Database, description, FailureSource::Database);
    }
    sqlite3_busy_timeout(session_, 2000);
}

void EmbeddedFile::Check(int outcome) {
    if (outcome != SQLITE_OK)
        FailDatabase(SqliteMessage(session_), {.native = sqlite3_extended_errcode(session_)});
}

void EmbeddedFile::Run(const char* script) {
    Check(sqlite3_exec(session_, script, nullptr, nullptr, nullptr));
}

void EmbeddedFile::Run(const char* statement, std::initializer_list<std::string_view> values) {
    Statement prepared(*this, statement);
    int place = 0;
    for (const std::string_view value : values)
        prepared.Bind(++place, value);
    prepared.Step();
}

std::string EmbeddedFile::FirstText(const char* query) {
    Statement prepared(*this, query);
    return prepared.Step() ? prepared.Text() : std::string();
}

long EmbeddedFile::FirstNumber(const char* query) {
    Statement prepared(*this, query);
    return prepared.Step() ? prepared.Number() : 0;
}

} // namespace Quillane
