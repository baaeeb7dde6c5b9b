#pragma once

#include <cstdint>

namespace Quillane::Office {

/// Bags in ten-thousandths and weights in hundredths of a kilogram, rounded as on the slip. They
/// are integers, so that a sum of a million of them is exact.
struct Figures {
    std::int64_t bags = 0;
    std::int64_t firstWeight = 0; ///< weight of the loaded truck
    std::int64_t tare = 0;
    std::int64_t gross = 0;     ///< first weight less tare
    std::int64_t deduction = 0; ///< gross less net
    std::int64_t net = 0;

    Figures& operator+=(const Figures& other);
    bool operator==(const Figures&) const = default;
};

inline constexpr int BagDecimals = 4;
inline constexpr int WeightDecimals = 2;

/// The stored figures of one arrival, summed over its bag lines. Kilograms.
struct StoredFigures {
    double bags = 0;
    double gross = 0; ///< after tare and scale deduction
    double tare = 0;
    double scaleDeduction = 0;
    double net = 0;
};

/// Computes the figures of an arrival that has been weighed twice, as on its slip. Errors: overflow
/// (6) beyond a billion tons.
Figures FiguresOf(const StoredFigures& stored);

/// Computes the figures of an arrival whose truck is still inside: bags and first weight, all
/// others 0.
Figures FirstFiguresOf(const StoredFigures& stored);

} // namespace Quillane::Office
