#pragma once

#include "ManyArrivals.h"
#include "platform/ado/Connection.h"

#include <string_view>

struct sqlite3;

namespace Quillane {

/// A second session of the same kind as the program's: same settings, collation, functions.
class RawSession {
public:
    explicit RawSession(const ManyArrivals& database);

    /// Steps the statement through the engine's C interface and reads every column, keeping
    /// nothing. The text is turned into the engine's own before, by `Statement`.
    long Step(const char* text) const;
    /// The program's statement as the engine takes it.
    static std::string Statement(std::string_view text);

private:
    Connection connection_;
    sqlite3* session_ = nullptr;
};

/// `Con`, opened on the database as the program opens it.
void OpenCon(const ManyArrivals& database);

} // namespace Quillane
