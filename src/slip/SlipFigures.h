#pragma once

#include "platform/ado/Recordset.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The figures of a slip, rounded to hundredths as they are printed. Kilograms; a Null counts as 0.
namespace Quillane {

/// One bag line. The stored rows hold the weight of a bag after tare and scale deduction, so that
/// bags times weight is the line's gross.
struct SlipLine {
    double gross = 0;
    double deduction = 0; ///< for the bags and other
    double Net() const;
};

/// The bag lines. They add up as printed: each line, each column and the total.
struct SlipLines {
    std::vector<SlipLine> lines;
    SlipLine total; ///< the rounded sum of the stored figures
    double bags = 0;
    double tare = 0;           ///< one row alone has it
    double scaleDeduction = 0; ///< each row has the whole of it: not summed
};

SlipLines LinesOf(const Recordset& rows);

/// Whether the truck has been on the scale only once.
enum class FirstWeighing { No, LoadedTruck, EmptyTruck };

/// The weights of the load. Initial gross and net are those of the screen; gross and deduction are
/// derived, so that the figures add up as printed. What is not known has no figure.
struct LoadWeights {
    std::optional<double> initialGross, tare, gross, deduction;
    double net = 0;
    /// The part of `deduction` that is a scale deduction. 0 where the initial gross is already
    /// without it, as on an arrival that has been opened.
    double scaleDeduction = 0;
    FirstWeighing firstWeighing = FirstWeighing::No;
};

/// An initial gross of 0 is none: the gross is then that of the lines.
LoadWeights WeightsOf(const SlipLines& lines, double initialGross, double net);

/// The first or the last text of a column that is not blank, over all rows.
std::string FirstTextOf(const Recordset& rows, std::string_view column);
std::string LastTextOf(const Recordset& rows, std::string_view column);

} // namespace Quillane
