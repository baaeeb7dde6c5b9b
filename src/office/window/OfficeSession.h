#pragma once

#include "signin/PasswordHash.h"

#include <string>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// What every page works with. It outlives the window.
struct OfficeSession {
    Connection& connection;
    std::string folder; ///< of the station, with its Config.ini and Station.ini
    std::string company{};
    std::string user{};
    int level = 0; ///< of the user: 1 has full rights
    HashCost hashCost = HashCost::Interactive;
};

} // namespace Quillane::Office
