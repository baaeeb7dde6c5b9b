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
    std::set<std::string> filledBySchema{}; ///< tables in which making the schema stores rows
    /// Makes what is missing of the schema. Throws `Cancelled` where the work is cancelled.
    std::function<void(LongWork& work)> makeSchema{};
    /// Last, with all rows there: rights, and a try-out of the station's sign-in.
    std::function<void(LongWork& work)> makeReady{};
    /// Points the station to the server: replaces `Config.ini`, all of it or nothing.
    std::function<void()> pointStation{};
};

struct MovedStation {
    std::size_t tables = 0;
    long rows = 0;
    std::string database;             ///< the file of before, which stays
    std::string configKept;           ///< the `Config.ini` of before
    std::vector<std::string> notes{}; ///< what went wrong without harm to the move, and what to do
};

/// Moves the embedded database of a station to a server: makes the schema, copies all tables, reads
/// them there and compares, and points the station to the server only when all agree. No other
/// program can open the embedded database until then; its file does not change.
///
/// Until the station is pointed to the server it works on its file, whatever fails, is cancelled or
/// killed; the next move then does the rest. Empty where it is cancelled. Fails with what to do:
/// where a station or an office has the database open, where the server's database holds other rows
/// (`MoveRefused`), and where the server refuses a row.
std::optional<MovedStation> Move(const std::string& stationFolder, const std::string& database,
                                 const std::function<MoveServer(LongWork& work)>& connect,
                                 LongWork& work);

} // namespace Quillane::Office
