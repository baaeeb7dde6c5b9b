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

/// Which arrivals a day book is of.
struct ArrivalFilter {
    Date from;
    Date to;                 ///< included
    std::string party{};     ///< the account; empty: all
    std::string commodity{}; ///< the id; empty: all
    std::string vehicle{};   ///< a part of the vehicle's number, case aside; empty: all
    bool onlyInside = false; ///< only trucks that have not been weighed empty yet
};

/// One arrival as the day book shows it.
struct Arrival {
    std::int32_t id = 0;
    Date day{};
    std::string party{};     ///< the account
    std::string commodity{}; ///< the id
    std::string vehicle{};
    /// No tare yet: `figures` has the bags and the first weight alone, and no sum counts them.
    bool isInside = false;
    Figures figures{};
};

/// A place between two arrivals in the order of the day book, by day and then by number.
struct ArrivalPlace {
    std::string
        moment{}; ///< of the arrival before it, as statements write it; empty: the beginning
    std::int32_t id = 0;
};

/// The next arrivals from a place on, `most` of them where there are so many. One statement, the
/// same for either engine; `place` moves on after them.
std::vector<Arrival> ReadArrivals(Connection& connection, const ArrivalFilter& filter,
                                  ArrivalPlace& place, int most);

/// The text of that statement.
std::string ArrivalsStatement(const ArrivalFilter& filter, const ArrivalPlace& place, int most);

} // namespace Quillane::Office
