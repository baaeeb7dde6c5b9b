#pragma once

#include "office/daybook/Arrivals.h"
#include "office/daybook/Sums.h"

#include <functional>
#include <string>
#include <vector>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// The arrivals of a filter, read page by page: of the arrivals themselves only a page at a time
/// is in memory, with the sums and the places at which pages begin. Each page is one statement, so
/// that stations can save and a window can handle its events in between.
class DayBook {
public:
    static constexpr int PageRows = 500;

    /// The connection outlives this.
    DayBook(Connection& connection, ArrivalFilter filter);

    /// Reads and sums the next page; false, and nothing more, at the end. A failure leaves what
    /// was read before.
    bool ReadOn();
    bool IsComplete() const { return isComplete_; }
    /// From 0 to 1, by the days that are done.
    double Progress() const;
    /// Called with each arrival that `ReadOn` reads, in order.
    std::function<void(const Arrival&)> Visit;

    const ArrivalFilter& Filter() const { return filter_; }
    const DayBookSums& Sums() const { return sums_; }
    const DayBookNames& Names() const { return names_; }
    /// The arrivals that have been read so far.
    int Count() const { return count_; }

    /// A page of those that have been read, the first one being 0, read from the database again.
    std::vector<Arrival> Page(int page) const;

private:
    Connection& connection_;
    ArrivalFilter filter_;
    DayBookNames names_;
    DayBookSums sums_;
    std::vector<ArrivalPlace> pages_; ///< where each begins
    ArrivalPlace place_;
    Date lastDay_;
    int count_ = 0;
    bool isComplete_ = false;
};

} // namespace Quillane::Office
