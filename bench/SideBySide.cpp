#include "SideBySide.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace Quillane {

namespace {

double ProcessorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double Of(std::vector<double> values, std::size_t quarter) {
    std::ranges::sort(values);
    return values.empty() ? 0 : values[(values.size() - 1) * quarter / 4];
}

void Take(const Action& action, Turns& turns) {
    if (action.ready)
        action.ready();
    const double processor = ProcessorMilliseconds();
    const auto start = std::chrono::steady_clock::now();
    action.act();
    const auto end = std::chrono::steady_clock::now();
    turns.processor.push_back(ProcessorMilliseconds() - processor);
    turns.clock.push_back(std::chrono::duration<double, std::milli>(end - start).count());
}

} // namespace

double Turns::Quartile(int quarter) const {
    return Of(processor, static_cast<std::size_t>(quarter));
}

double Turns::MedianByClock() const {
    return Of(clock, 2);
}

SideBySide::SideBySide(int turns, const Action& ofProgram, const Action& ofReference) {
    Turns uncounted;
    Take(ofProgram, uncounted);
    Take(ofReference, uncounted);
    for (int turn = 0; turn < turns; ++turn) {
        if (turn % 2 == 0)
            Take(ofProgram, program);
        Take(ofReference, reference);
        if (turn % 2 == 1)
            Take(ofProgram, program);
    }
}

double SideBySide::Ratio() const {
    return program.Median() / reference.Median();
}

double SideBySide::RatioByClock() const {
    return program.MedianByClock() / reference.MedianByClock();
}

Turns Repeated(int turns, const Action& action) {
    Turns uncounted;
    Take(action, uncounted);
    Turns counted;
    for (int turn = 0; turn < turns; ++turn)
        Take(action, counted);
    return counted;
}

namespace {

std::string WithQuartiles(const Turns& turns) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f (%.2f-%.2f)", turns.Median(), turns.Quartile(1),
                  turns.Quartile(3));
    return text;
}

} // namespace

void PrintHeading(std::string_view title) {
    std::printf("\n%-44.*s %7s %25s %25s %6s %6s %5s\n", static_cast<int>(title.size()),
                title.data(), "rows", "program, processor's ms", "raw (and quartiles)", "ratio",
                "clock", "limit");
}

void PrintLine(std::string_view what, long rows, const SideBySide& measured, double limit) {
    std::printf("%-44.*s %7ld %25s %25s %6.2f %6.2f %5.1f%s\n", static_cast<int>(what.size()),
                what.data(), rows, WithQuartiles(measured.program).c_str(),
                WithQuartiles(measured.reference).c_str(), measured.Ratio(),
                measured.RatioByClock(), limit, measured.Ratio() > limit ? "  over" : "");
    std::fflush(stdout);
}

} // namespace Quillane
