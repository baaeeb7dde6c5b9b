#pragma once

#include "platform/ado/Connection.h"

#include <string>
#include <string_view>

struct sqlite3;

namespace Quillane {

/// Allows only one statement to read a column. Requires: it is not moved during the session.
class SqliteSecret {
public:
    explicit SqliteSecret(EmbeddedSupport::Secret secret);
    SqliteSecret(const SqliteSecret&) = delete;
    SqliteSecret& operator=(const SqliteSecret&) = delete;

    void Install(sqlite3* session);

    /// Called before each statement runs, prepared already or not.
    void SetStatement(std::string_view statement) { isReader_ = statement == secret_.reader; }
    /// Called before a statement is prepared. Errors: the statement could read the column without
    /// the engine's check.
    void Judge(std::string_view statement) const;

private:
    static int Authorize(void* secret, int action, const char* table, const char* column,
                         const char* database, const char* trigger);

    EmbeddedSupport::Secret secret_;
    std::string tableInCapitals_;
    bool isReader_ = false;
};

} // namespace Quillane
