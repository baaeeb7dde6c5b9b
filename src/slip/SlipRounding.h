#pragma once

#include <string>
#include <vector>

/// Rounding and formatting of the figures of a slip. Ties are rounded away from zero.
namespace Quillane {

double RoundedToHundredths(double figure);

/// Rounds to hundredths so that the results add up to the rounded sum. If necessary, a result is
/// rounded in the other direction.
std::vector<double> RoundedTogether(const std::vector<double>& figures);

/// Two decimals, for columns: 81.17, 4860.00.
std::string ColumnKilograms(double kilograms);
/// Rounded to two decimals, in the general form: 8117, 81.17.
std::string Kilograms(double kilograms);
/// Rounded to four decimals, in the general form: 60, 12.5.
std::string BagCount(double bags);

} // namespace Quillane
