#pragma once

#include "office/move/TargetDatabase.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Quillane {
class LongWork;
} // namespace Quillane

namespace Quillane::Office {

/// The server that a station is moved to.
struct MoveServer {
    std::unique_ptr<Connection> connection;
    MoveDialect dialect;
    std::set<std::string>
        filledBySchema{}; ///< tables in which the creation of the schema stores rows
    /// Creates the missing parts of the schema. Throws `Cancelled` if the work is cancelled.
    std::function<void(LongWork& work)> makeSchema{};
    /// Runs last, after all rows are stored: sets the rights and tests the station's sign-in.
    std::function<void(LongWork& work)> makeReady{};
    /// Points the station to the server: replaces `Config.ini` as a whole or not at all.
    std::function<void()> pointStation{};
};

struct MovedStation {
    std::size_t tables = 0;
    long rows = 0;
    std::string database;             ///< the previous database, which is kept
    std::string configKept;           ///< the previous `Config.ini`
    std::vector<std::string> notes{}; ///< errors that do not affect the move, and what to do
};

/// Moves the embedded database of a station to a server: creates the schema, copies all tables,
/// reads them there and compares them. It points the station to the server only if everything
/// agrees. No other program can open the embedded database until then; its file does not change.
///
/// Until the station is pointed to the server it works on its file, even after a failure, a
/// cancellation or a kill; the next move then does the rest. Returns nothing if it was cancelled.
/// Errors, with what to do: a station or an office has the database open; the server's database
/// contains other rows (`MoveRefused`); the server refuses a row.
std::optional<MovedStation> Move(const std::string& stationFolder, const std::string& database,
                                 const std::function<MoveServer(LongWork& work)>& connect,
                                 LongWork& work);

} // namespace Quillane::Office
