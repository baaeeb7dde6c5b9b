#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The arithmetic of a weighment. All weights are in kilograms. Text parameters are read leniently
/// (`Val`); text results are whole numbers in plain digits.
namespace Quillane {

/// A mound, the trade's unit of grain, is 40 kilograms.
inline constexpr double KgsPerMound = 40;

struct GrossFigures {
    std::string scaleDeduction;
    std::string gross; ///< the initial gross less tare and scale deduction
};

/// None if there is no initial gross; nothing is written then. `rate` is the deduction in kilograms
/// for each mound. A tare above the initial gross gives negative figures.
std::optional<GrossFigures> GrossFiguresOf(std::string_view initialGross, std::string_view tare,
                                           std::string_view rate);

/// The net: gross less the bags' weight, the shortage and the deduction.
std::string NetWeightOf(std::string_view gross, std::string_view bagsWeight,
                        std::string_view shortage, std::string_view deduction);

/// The figures of the weighment that are divided among its bag lines.
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

/// Fails with Division by zero (11) if there are no bags, or Overflow (6) for zero divided by zero.
BagLineFigures ShareOfLine(const WeighmentTotals& totals, double bagsOfLine);

} // namespace Quillane
