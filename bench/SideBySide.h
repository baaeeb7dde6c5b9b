#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// What one kind of turn took, over all its turns, in milliseconds.
struct Turns {
    std::vector<double> processor; ///< of this process
    std::vector<double> clock;

    /// Of the sorted times of the processor: 0 the least, 2 the median, 4 the most.
    double Quartile(int quarter) const;
    double Median() const { return Quartile(2); }
    double MedianByClock() const;
};

/// Times one turn: what is to be ready comes first, untimed.
struct Action {
    std::function<void()> ready;
    std::function<void()> act;
};

/// The program and its reference in turn, so that both meet the machine as it is at that moment.
/// Each goes first in every second turn. A first pair is not counted. Neither waits for anything
/// but the processor, so that its time tells what a machine without other work would take.
struct SideBySide {
    SideBySide(int turns, const Action& program, const Action& reference);

    Turns program;
    Turns reference;
    double Ratio() const; ///< of the medians of the processor's time
    double RatioByClock() const;
};

/// One line of the table: what was done, the rows it was about, both times and their ratio.
void PrintHeading(std::string_view title);
void PrintLine(std::string_view what, long rows, const SideBySide& measured, double limit);

/// One action without a reference.
Turns Repeated(int turns, const Action& action);

} // namespace Quillane
