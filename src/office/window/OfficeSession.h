#pragma once

#include "office/records/WriteRights.h"
#include "signin/PasswordHash.h"

#include <functional>
#include <string>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// The data that the pages share. It outlives the window.
struct OfficeSession {
    Connection& connection;
    std::string folder; ///< of the station, with its Config.ini and Station.ini
    std::string company{};
    std::string user{};
    int level = 0; ///< of the user: 1 has full rights
    HashCost hashCost = HashCost::Interactive;
    /// Why tables are read-only, who owns them and what to do; empty if they may be written.
    std::function<std::string(Connection&, std::span<const std::string_view> tables)> whyReadOnly =
        [](Connection& asked, std::span<const std::string_view> tables) {
            return WhyReadOnly(asked, tables);
        };
    /// Set by a page that then closes the window: the copy that is to replace the embedded database
    /// after the window has been closed. Empty: none.
    std::string copyToRestore{};
};

} // namespace Quillane::Office
