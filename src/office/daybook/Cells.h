#pragma once

#include "office/daybook/DayBook.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The columns of the two tables of a day book, arrivals and sums. The page, the print and the
/// files use the same columns.
namespace Quillane::Office {

/// The contents of a cell: a text or an exact number.
struct Cell {
    enum class Kind {
        Empty,
        Text,
        Note, ///< a text instead of a number; not written to files
        Number,
        Id,    ///< a number without thousands separators
        Day,   ///< YYYY-MM-DD in `text`
        Mounds ///< a net weight in mounds
    };
    Kind kind = Kind::Empty;
    std::string text{};
    std::int64_t number = 0; ///< in units of the last decimal
    int decimals = 0;

    /// The text to show: 12,540; 12,540.50; 20/11/2026; mounds and kilograms as on the slip.
    std::string Shown() const;
    /// The text to export: 12540; 12540.5; 2026-11-20; mounds as a number, 202.5.
    std::string Plain() const;
    /// A number or mounds, as the nearest double.
    double AsDouble() const;
    /// A number without a fraction.
    bool IsWhole() const;
};

struct ColumnHeading {
    std::string_view caption;
    std::string_view unit;  ///< "kg"; empty: none
    std::string_view plain; ///< name of the column in a file
    bool isNumber = false;
    int width = 0; ///< in characters

    /// "Tare (kg)"
    std::string WithUnit() const;
};

const std::vector<ColumnHeading>& ArrivalHeadings();
std::vector<Cell> CellsOf(const Arrival& arrival, const DayBookNames& names);

/// The first column is the day, the party or the commodity.
const std::vector<ColumnHeading>& SumHeadings(SumsBy by);
std::vector<Cell> CellsOf(const NamedSum& sum, SumsBy by);

/// The cells of the sum of all arrivals, in the columns of the arrivals.
std::vector<Cell> CellsBelowArrivals(const Sum& sum);
/// The same in the columns of the sums.
std::vector<Cell> CellsBelowSums(const Sum& sum, SumsBy by);

/// "Arrivals", "By day", "By party", "By commodity".
std::string_view TitleOfArrivals();
std::string_view TitleOf(SumsBy by);

} // namespace Quillane::Office
