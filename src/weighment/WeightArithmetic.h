#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The arithmetic of a weighment over plain values. All weights are kilograms; texts in are read
/// leniently (`Val`), texts out are whole numbers in plain digits.
namespace Quillane {

/// A mound, the trade's measure of grain, is 40 kilograms.
inline constexpr double KgsPerMound = 40;

struct GrossFigures {
    std::string scaleDeduction;
    std::string gross; ///< the load: what is left of the initial gross after tare and deduction
};

/// None while there is no initial gross: nothing is to be written then. `rate` is the kilograms
/// deducted for each mound of load. Nothing guards against a tare above the initial gross: the
/// figures are negative then.
std::optional<GrossFigures> GrossFiguresOf(std::string_view initialGross, std::string_view tare,
                                           std::string_view rate);

/// The net: gross less the bags' weight, the shortage and the deduction.
std::string NetWeightOf(std::string_view gross, std::string_view bagsWeight,
                        std::string_view shortage, std::string_view deduction);

/// The figures of the whole weighment that are shared out over its bag lines.
struct WeighmentTotals {
    double gross = 0;
    double shortage = 0;
    double deduction = 0;
    double net = 0;
    std::int16_t bags = 0;
};

/// One bag line's share, unrounded.
struct BagLineFigures {
    double bagWeight = 0;      ///< gross for each bag, the same on every line
    double otherDeduction = 0; ///< of shortage and deduction together
    double netWeight = 0;
};

/// Fails with Division by zero (11) when there are no bags, or Overflow (6) for nothing by nothing.
BagLineFigures ShareOfLine(const WeighmentTotals& totals, double bagsOfLine);

} // namespace Quillane
