#pragma once

#include "platform/ado/Recordset.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The figures of a slip in kilograms, rounded to hundredths as printed. Null counts as 0.
namespace Quillane {

/// One bag line. The stored weight of a bag is after tare and scale deduction, so bags times weight
/// is the gross weight of the line.
struct SlipLine {
    double gross = 0;
    double deduction = 0; ///< for the bags and other
    double Net() const;
};

/// The totals of the bag lines of a load.
struct SlipSums {
    bool hasLines = false;
    SlipLine total; ///< the rounded sum of the stored figures
    double bags = 0;
    double tare = 0;           ///< stored in only one row
    double scaleDeduction = 0; ///< stored completely in each row, so not summed
};

/// The bag lines. They add up as printed: each line, each column and the total.
struct SlipLines : SlipSums {
    std::vector<SlipLine> lines;
};

SlipLines LinesOf(const Recordset& rows);

/// True if the truck has been weighed only once.
enum class FirstWeighing { No, LoadedTruck, EmptyTruck };

/// The weights of the load. Initial gross and net are those of the screen; gross and deduction are
/// derived, so that the printed figures add up. Unknown weights have no value.
struct LoadWeights {
    std::optional<double> initialGross, tare, gross, deduction;
    double net = 0;
    /// The part of `deduction` that is a scale deduction; 0 if it is already subtracted from the
    /// initial gross, as for an opened arrival.
    double scaleDeduction = 0;
    FirstWeighing firstWeighing = FirstWeighing::No;
};

/// An initial gross of 0 means none: the gross is then that of the lines.
LoadWeights WeightsOf(const SlipSums& lines, double initialGross, double net);

/// The first text of a column that is not blank, over all rows.
std::string FirstTextOf(const Recordset& rows, std::string_view column);
/// The last text of a column that is not empty, over all rows. Blanks count as a text, as they do
/// when the screen opens an arrival.
std::string LastTextOf(const Recordset& rows, std::string_view column);

} // namespace Quillane
