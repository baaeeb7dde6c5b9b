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

/// The arrivals of a filter, read page by page. Only one page of arrivals is in memory, with the
/// sums and the start positions of all pages. Each page is one statement, so that stations can save
/// and a window can process its events in between.
class DayBook {
public:
    static constexpr int PageRows = 500;

    /// Requires: the connection outlives this object.
    DayBook(Connection& connection, ArrivalFilter filter);

    /// Reads and sums the next page. Returns false at the end. After a failure the earlier pages
    /// are still valid.
    bool ReadOn();
    bool IsComplete() const { return isComplete_; }
    /// The share of the days that have been read, from 0 to 1.
    double Progress() const;
    /// Called with each arrival that `ReadOn` reads, in order.
    std::function<void(const Arrival&)> Visit;

    const ArrivalFilter& Filter() const { return filter_; }
    const DayBookSums& Sums() const { return sums_; }
    const DayBookNames& Names() const { return names_; }
    /// The number of arrivals that have been read so far.
    int Count() const { return count_; }

    /// Reads one of these pages from the database again; the first is 0.
    std::vector<Arrival> Page(int page) const;

private:
    Connection& connection_;
    ArrivalFilter filter_;
    DayBookNames names_;
    DayBookSums sums_;
    std::vector<ArrivalPosition> pages_; ///< the start of each page
    ArrivalPosition position_;
    Date lastDay_;
    int count_ = 0;
    bool isComplete_ = false;
};

} // namespace Quillane::Office
