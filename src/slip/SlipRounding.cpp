#include "slip/SlipRounding.h"

#include "platform/runtime/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <numeric>

namespace Quillane {

namespace {

/// Rounds to a whole number. A decimal tie counts as one even if its binary form is slightly below
/// it. Minus zero becomes zero.
double RoundedToWhole(double value) {
    constexpr double trifle = 1e-6;
    return std::round(value + std::copysign(trifle, value)) + 0.0;
}

double SumOf(const std::vector<double>& figures) {
    return std::accumulate(figures.begin(), figures.end(), 0.0);
}

/// The indices of the results to be moved by `step`, in order: those first that rounding has moved
/// farthest in the other direction. Of equal ones the last come first.
std::vector<std::size_t> PlacesToMove(const std::vector<double>& exact,
                                      const std::vector<double>& rounded, double step) {
    std::vector<std::size_t> indices(exact.size());
    std::iota(indices.rbegin(), indices.rend(), 0U);
    std::ranges::stable_sort(indices, std::greater(), [&](std::size_t index) {
        constexpr double precision = 1e6;
        return std::round((exact[index] - rounded[index]) * step * precision);
    });
    return indices;
}

} // namespace

double RoundedToHundredths(double figure) {
    return RoundedToWhole(figure * 100) / 100;
}

std::vector<double> RoundedTogether(const std::vector<double>& figures) {
    std::vector<double> exact = figures;
    for (double& figure : exact)
        figure *= 100;
    std::vector<double> rounded = exact;
    std::ranges::transform(rounded, rounded.begin(), RoundedToWhole);
    const double missing = RoundedToWhole(SumOf(exact)) - SumOf(rounded);
    const double step = std::copysign(1, missing);
    double moved = 0;
    for (const std::size_t index : PlacesToMove(exact, rounded, step)) {
        if (moved++ >= std::abs(missing))
            break;
        rounded[index] += step;
    }
    for (double& figure : rounded)
        figure /= 100;
    return rounded;
}

std::string ColumnKilograms(double kilograms) {
    std::array<char, 400> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   RoundedToHundredths(kilograms), std::chars_format::fixed, 2);
    return {digits.data(), end.ptr};
}

std::string Kilograms(double kilograms) {
    return NumberText(RoundedToHundredths(kilograms));
}

std::string BagCount(double bags) {
    return NumberText(RoundedToWhole(bags * 10000) / 10000);
}

} // namespace Quillane
