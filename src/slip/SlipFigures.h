#pragma once

#include "platform/ado/Recordset.h"

#include <string>
#include <string_view>

/// The figures of a slip, from its rows as they are stored. Kilograms; a Null counts as 0.
namespace Quillane {

/// One bag line. The stored rows hold the weight of a bag after tare and scale deduction, so that
/// bags times weight is the line's gross.
struct SlipLine {
    double bags = 0;
    double gross = 0;
    double deduction = 0; ///< for the bags and other
    double Net() const { return gross - deduction; }
};

struct SlipTotals : SlipLine {
    double tare = 0;           ///< it stands on one row alone
    double scaleDeduction = 0; ///< the whole of it stands on each row: not summed
};

/// The line of the current row.
SlipLine LineOf(const Recordset& rows);
SlipTotals TotalsOf(const Recordset& rows);

/// The first text of a column that is not empty, over all rows: the vehicle stands on one alone.
std::string FirstTextOf(const Recordset& rows, std::string_view column);

/// Two decimals, for columns: 81.17, 4860.00.
std::string ColumnKilograms(double kilograms);
/// Rounded to two decimals, in the general form: 8117, 81.17.
std::string Kilograms(double kilograms);

} // namespace Quillane
