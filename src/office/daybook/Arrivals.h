#pragma once

#include "office/daybook/Figures.h"
#include "platform/runtime/Date.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// Selects the arrivals of a day book.
struct ArrivalFilter {
    Date from;
    Date to;                 ///< inclusive
    std::string party{};     ///< the account; empty: all
    std::string commodity{}; ///< the id; empty: all
    std::string vehicle{};   ///< a part of the vehicle number, not case-sensitive; empty: all
    bool onlyInside = false; ///< only trucks that have not been weighed empty yet
};

/// One arrival as the day book shows it.
struct Arrival {
    std::int32_t id = 0;
    Date day{};
    std::string party{};     ///< the account
    std::string commodity{}; ///< the id
    std::string vehicle{};
    /// No tare yet: `figures` has only the bags and the first weight, and no sum includes them.
    bool isInside = false;
    Figures figures{};
};

/// A position between two arrivals in the order of the day book, by day and then by number.
struct ArrivalPosition {
    std::string moment{}; ///< of the arrival before it, as a literal; empty: the beginning
    std::int32_t id = 0;
};

/// Reads up to `most` arrivals from a position on and advances it. Runs one statement, the same for
/// both engines.
std::vector<Arrival> ReadArrivals(Connection& connection, const ArrivalFilter& filter,
                                  ArrivalPosition& position, int most);

/// Returns the text of that statement.
std::string ArrivalsStatement(const ArrivalFilter& filter, const ArrivalPosition& position,
                              int most);

} // namespace Quillane::Office
