#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// The times of one action over all its turns, in milliseconds.
struct Turns {
    std::vector<double> processor; ///< processor time of this process
    std::vector<double> clock;

    /// A quartile of the processor times: 0 is the minimum, 2 the median, 4 the maximum.
    double Quartile(int quarter) const;
    double Median() const { return Quartile(2); }
    double MedianByClock() const;
};

/// One turn: the preparation is not timed.
struct Action {
    std::function<void()> ready;
    std::function<void()> act;
};

/// Runs the program and its reference alternately, so that both are measured under the same load.
/// Each runs first in every second turn. The first pair is not counted. Both use only the
/// processor, so the processor time is that of an idle machine.
struct SideBySide {
    SideBySide(int turns, const Action& program, const Action& reference);

    Turns program;
    Turns reference;
    double Ratio() const; ///< ratio of the median processor times
    double RatioByClock() const;
};

/// Prints one line of the table: the action, the number of rows, both times and their ratio.
void PrintHeading(std::string_view title);
void PrintLine(std::string_view what, long rows, const SideBySide& measured, double limit);

/// Measures one action without a reference.
Turns Repeated(int turns, const Action& action);

} // namespace Quillane
