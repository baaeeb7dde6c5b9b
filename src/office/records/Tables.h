#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The lists that the office edits, described as data. Reading, checking, writing, deleting, CSV
/// files and the screens all use these descriptions.
namespace Quillane::Office {

/// The type of a cell. A cell is always text: a number as plain digits, a flag as "0" or "1", a
/// reference as the key of the row that it refers to. Null is the empty text.
enum class CellKind { Text, Number, Flag, Reference };

struct Table;

struct Column {
    std::string_view name;    ///< in the database
    std::string_view header;  ///< in a CSV file
    std::string_view caption; ///< on screens and in messages
    CellKind kind = CellKind::Text;
    std::size_t part = 0;          ///< the index of the part that holds it
    int longest = 0;               ///< maximum length of a text in UTF-16 units, as in SQL Server
    std::string_view whyNeeded{};  ///< empty if the cell may be empty
    std::string_view initial{};    ///< the default in a new row
    const Table* target = nullptr; ///< the table that a reference refers to
};

/// A database table that holds some columns of each row, with the same key.
struct Part {
    std::string_view table;
    std::string_view key;
};

/// A column that holds keys of another table.
struct KeyColumn {
    std::string table;
    std::string column;
};

/// One list. Its first column is the key, which cannot be changed; the second is the name.
struct Table {
    std::string_view name;   ///< on the command line
    std::string_view title;  ///< "Bag classes"
    std::string_view one;    ///< "bag class"
    std::vector<Part> parts; ///< in the order in which a new row is written
    std::vector<Column> columns;
    /// The columns by which the station joins this table when it opens an arrival: without the row
    /// the arrival can never be opened again. They are checked even without a foreign key in the
    /// database.
    std::vector<KeyColumn> joinedBy;
    /// The index of the flag that is 0 if a row is out of use; -1 if the table has none.
    int inUse = -1;
    bool numbersItself = true; ///< the key is a whole number; a new row gets the next one

    const Column& Key() const { return columns[0]; }
    const Column& Name() const { return columns[1]; }
};

inline constexpr std::size_t KeyCell = 0;
inline constexpr std::size_t NameCell = 1;

/// One row, a cell for each column of its table.
using Row = std::vector<std::string>;

const Table& PartiesTable();
const Table& CitiesTable();
const Table& CommoditiesTable();
const Table& BagClassesTable();
const Table& BagTypesTable();

/// All lists, in the order in which a new mill must fill them.
std::span<const Table* const> AllTables();

/// Finds a list by its name on the command line (not case-sensitive); null if there is none.
const Table* TableNamed(std::string_view name);

/// The index of a column in its table. Errors: subscript out of range (9) if it does not exist.
std::size_t PlaceOf(const Table& table, std::string_view column);

/// A new row with the default cells.
Row InitialRow(const Table& table);

/// "party 6010001 (Zahid Traders)", for messages.
std::string Called(const Table& table, const Row& row);

} // namespace Quillane::Office
