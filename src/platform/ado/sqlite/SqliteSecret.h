#pragma once

#include "platform/ado/Connection.h"

#include <string>
#include <string_view>

struct sqlite3;

namespace Quillane {

/// Keeps one column from every statement but the one that may read it. Stays where it is as long as
/// the session lasts.
class SqliteSecret {
public:
    explicit SqliteSecret(EmbeddedSupport::Secret secret);
    SqliteSecret(const SqliteSecret&) = delete;
    SqliteSecret& operator=(const SqliteSecret&) = delete;

    void Install(sqlite3* session);

    /// Called before each statement runs, prepared already or not.
    void SetStatement(std::string_view statement) { isReader_ = statement == secret_.reader; }
    /// Called before a statement is prepared. Fails where it could read the column past the
    /// engine's own check.
    void Judge(std::string_view statement) const;

private:
    static int Authorize(void* secret, int action, const char* table, const char* column,
                         const char* database, const char* trigger);

    EmbeddedSupport::Secret secret_;
    std::string tableInCapitals_;
    bool isReader_ = false;
};

} // namespace Quillane
