#include "office/daybook/Figures.h"

#include "platform/runtime/Failure.h"
#include "slip/SlipFigures.h"
#include "slip/SlipRounding.h"

#include <cmath>

namespace Quillane::Office {

namespace {

std::int64_t Scaled(double figure, double scale) {
    constexpr double most = 1e14; // also keeps every digit of a sum of many such figures
    const double scaled = std::round(figure * scale);
    if (!(std::fabs(scaled) < most))
        Fail(FailureNumber::Overflow);
    return static_cast<std::int64_t>(scaled);
}

std::int64_t Bags(double bags) {
    constexpr double scale = 10'000;
    return Scaled(bags, scale);
}

std::int64_t Hundredths(double kilograms) {
    constexpr double scale = 100;
    return Scaled(RoundedToHundredths(kilograms), scale);
}

LoadWeights SlipWeightsOf(const StoredFigures& stored) {
    const SlipSums lines{.hasLines = true,
                         .total = {.gross = RoundedToHundredths(stored.gross)},
                         .tare = stored.tare,
                         .scaleDeduction = stored.scaleDeduction};
    return WeightsOf(lines, stored.gross + stored.scaleDeduction + stored.tare, stored.net);
}

} // namespace

Figures& Figures::operator+=(const Figures& other) {
    bags += other.bags;
    firstWeight += other.firstWeight;
    tare += other.tare;
    gross += other.gross;
    deduction += other.deduction;
    net += other.net;
    return *this;
}

Figures FiguresOf(const StoredFigures& stored) {
    const LoadWeights weights = SlipWeightsOf(stored);
    return {.bags = Bags(stored.bags),
            .firstWeight = Hundredths(weights.initialGross.value_or(0)),
            .tare = Hundredths(weights.tare.value_or(0)),
            .gross = Hundredths(weights.gross.value_or(0)),
            .deduction = Hundredths(weights.deduction.value_or(0)),
            .net = Hundredths(weights.net)};
}

Figures FirstFiguresOf(const StoredFigures& stored) {
    return {.bags = Bags(stored.bags),
            .firstWeight = Hundredths(SlipWeightsOf(stored).initialGross.value_or(0))};
}

} // namespace Quillane::Office
