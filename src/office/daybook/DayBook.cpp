#include "office/daybook/DayBook.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"

#include <algorithm>

namespace Quillane::Office {

namespace {

int DaysFrom(Date first, Date last) {
    return static_cast<int>((std::chrono::sys_days(last) - std::chrono::sys_days(first)).count());
}

} // namespace

DayBook::DayBook(Connection& connection, ArrivalFilter filter)
    : connection_(connection), filter_(std::move(filter)), names_(connection),
      lastDay_(filter_.from) {}

bool DayBook::ReadOn() {
    if (isComplete_)
        return false;
    const ArrivalPosition before = position_;
    const std::vector<Arrival> arrivals = ReadArrivals(connection_, filter_, position_, PageRows);
    if (!arrivals.empty())
        pages_.push_back(before);
    count_ += static_cast<int>(arrivals.size());
    for (const Arrival& arrival : arrivals) {
        sums_.Add(arrival);
        lastDay_ = arrival.day;
        if (Visit)
            Visit(arrival);
    }
    isComplete_ = arrivals.size() < PageRows;
    return !isComplete_;
}

double DayBook::Progress() const {
    if (isComplete_)
        return 1;
    return static_cast<double>(DaysFrom(filter_.from, lastDay_)) /
           std::max(DaysFrom(filter_.from, filter_.to) + 1, 1);
}

std::vector<Arrival> DayBook::Page(int page) const {
    ArrivalPosition position = pages_.at(static_cast<std::size_t>(page));
    return ReadArrivals(connection_, filter_, position, PageRows);
}

} // namespace Quillane::Office
