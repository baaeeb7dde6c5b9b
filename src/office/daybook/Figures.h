#pragma once

#include <cstdint>

namespace Quillane::Office {

/// Bags and weights, exact, so that a sum of a million of them is right to its last digit: bags in
/// ten-thousandths, weights in hundredths of a kilogram, as the slip rounds them.
struct Figures {
    std::int64_t bags = 0;
    std::int64_t firstWeight = 0; ///< the loaded truck
    std::int64_t tare = 0;
    std::int64_t gross = 0;     ///< first weight less tare
    std::int64_t deduction = 0; ///< gross less net
    std::int64_t net = 0;

    Figures& operator+=(const Figures& other);
    bool operator==(const Figures&) const = default;
};

inline constexpr int BagDecimals = 4;
inline constexpr int WeightDecimals = 2;

/// What is stored of one arrival, summed over its bag lines. Kilograms.
struct StoredFigures {
    double bags = 0;
    double gross = 0; ///< after tare and scale deduction
    double tare = 0;
    double scaleDeduction = 0;
    double net = 0;
};

/// The figures of an arrival that has been weighed twice, by the rule of its slip. A figure that is
/// no weight of a truck, beyond a billion tons, fails (6).
Figures FiguresOf(const StoredFigures& stored);

/// The figures of one whose truck is still inside: bags and first weight, all else 0.
Figures FirstFiguresOf(const StoredFigures& stored);

} // namespace Quillane::Office
