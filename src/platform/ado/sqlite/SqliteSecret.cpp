#include "platform/ado/sqlite/SqliteSecret.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Text.h"

#include <sqlite3.h>

#include <utility>

namespace Quillane {

SqliteSecret::SqliteSecret(EmbeddedSupport::Secret secret)
    : secret_(std::move(secret)), tableInCapitals_(UpperCase(secret_.table)) {}

void SqliteSecret::Install(sqlite3* session) {
    if (!secret_.table.empty())
        sqlite3_set_authorizer(session, Authorize, this);
}

// The engine does not ask before it reads a column that a full join merges with one of the same
// name. No statement of the system joins this table with another one.
void SqliteSecret::Judge(std::string_view statement) const {
    if (isReader_ || tableInCapitals_.empty())
        return;
    const std::string text = UpperCase(statement);
    if (text.find(tableInCapitals_) != std::string::npos && text.find("JOIN") != std::string::npos)
        FailDatabase("access to " + secret_.table + "." + secret_.column + " is prohibited");
}

int SqliteSecret::Authorize(void* secret, int action, const char* table, const char* column,
                            const char*, const char*) {
    const auto& self = *static_cast<const SqliteSecret*>(secret);
    const bool isRead = action == SQLITE_READ && !self.isReader_ &&
                        EqualIgnoringCase(table, self.secret_.table) &&
                        EqualIgnoringCase(column, self.secret_.column);
    return isRead ? SQLITE_DENY : SQLITE_OK;
}

} // namespace Quillane
