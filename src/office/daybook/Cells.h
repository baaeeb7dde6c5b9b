#pragma once

#include "office/daybook/DayBook.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The two tables of a day book, of arrivals and of sums: what the page, the print and the files
/// have in their columns.
namespace Quillane::Office {

/// What a cell holds: a text, or an exact number.
struct Cell {
    enum class Kind {
        Empty,
        Text,
        Note, ///< a text in place of a number, for people alone
        Number,
        Id,    ///< a number that is never grouped
        Day,   ///< YYYY-MM-DD in `text`
        Mounds ///< of a net weight
    };
    Kind kind = Kind::Empty;
    std::string text{};
    std::int64_t number = 0; ///< in units of the last decimal
    int decimals = 0;

    /// For people: 12,540; 12,540.50; 20/11/2026; mounds and kilograms as on the slip.
    std::string Shown() const;
    /// For programs: 12540; 12540.5; 2026-11-20; mounds as a number, 202.5.
    std::string Plain() const;
    /// A number or mounds, as the nearest floating number.
    double AsDouble() const;
    /// A number without a fraction.
    bool IsWhole() const;
};

struct ColumnHeading {
    std::string_view caption;
    std::string_view unit;  ///< "kg"; empty: none
    std::string_view plain; ///< of a file's column
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

/// The sum of all arrivals, cell by cell below those of the arrivals.
std::vector<Cell> CellsBelowArrivals(const Sum& sum);
/// And below those of the sums.
std::vector<Cell> CellsBelowSums(const Sum& sum, SumsBy by);

/// "Arrivals", "By day", "By party", "By commodity".
std::string_view TitleOfArrivals();
std::string_view TitleOf(SumsBy by);

} // namespace Quillane::Office
