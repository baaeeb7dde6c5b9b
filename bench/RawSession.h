#pragma once

#include "ManyArrivals.h"
#include "platform/ado/Connection.h"

#include <string_view>

struct sqlite3;

namespace Quillane {

/// A second session with the same settings, collation and functions as the program.
class RawSession {
public:
    explicit RawSession(const ManyArrivals& database);

    /// Steps a statement with the C interface of SQLite and reads every column without storing it.
    /// Requires: `Statement` has translated the text.
    long Step(const char* text) const;
    /// Translates a statement of the program to the dialect of SQLite.
    static std::string Statement(std::string_view text);

private:
    Connection connection_;
    sqlite3* session_ = nullptr;
};

/// Opens `Con` in the same way as the program.
void OpenCon(const ManyArrivals& database);

} // namespace Quillane
