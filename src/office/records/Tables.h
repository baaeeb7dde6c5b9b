#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The lists that the office keeps, described once as data: reading, checking, writing, deleting,
/// CSV files and the screens all go by these descriptions.
namespace Quillane::Office {

/// What a cell holds. A cell is always text: a number as plain digits, a flag as "0" or "1", a
/// reference as the key of the row that it names. Null is the empty text.
enum class CellKind { Text, Number, Flag, Reference };

struct Table;

struct Column {
    std::string_view name;    ///< in the database
    std::string_view header;  ///< in a CSV file
    std::string_view caption; ///< on screens and in messages
    CellKind kind = CellKind::Text;
    std::size_t part = 0;          ///< which of the table's parts holds it
    int longest = 0;               ///< of a text, in UTF-16 units, as SQL Server counts them
    std::string_view whyNeeded{};  ///< empty where the cell may be empty
    std::string_view initial{};    ///< in a new row of which nothing else is known
    const Table* target = nullptr; ///< of a reference
};

/// A table of the database that holds a share of each row, under the row's key.
struct Part {
    std::string_view table;
    std::string_view key;
};

/// A column that holds keys of a table.
struct KeyColumn {
    std::string table;
    std::string column;
};

/// One list. Its first column is the key, which never changes; its second one is the name.
struct Table {
    std::string_view name;   ///< on the command line
    std::string_view title;  ///< "Bag classes"
    std::string_view one;    ///< "bag class"
    std::vector<Part> parts; ///< in the order in which a new row is written
    std::vector<Column> columns;
    /// The inner joins by which the station opens a stored arrival: without the row it can never be
    /// opened again. They count also where the database has no foreign key for them.
    std::vector<KeyColumn> joinedBy;
    /// The flag that takes a row out of use when it is 0; -1 where the table has none.
    int inUse = -1;
    bool numbersItself = true; ///< the key is a whole number, counted up

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

/// All of them, in the order in which a new mill fills them.
std::span<const Table* const> AllTables();

/// By its name on the command line, case aside; null where there is none.
const Table* TableNamed(std::string_view name);

/// The column's place among those of its table; fails (9) where it is not there.
std::size_t PlaceOf(const Table& table, std::string_view column);

/// A row of initial cells.
Row InitialRow(const Table& table);

/// "party 6010001 (Zahid Traders)", for messages.
std::string Called(const Table& table, const Row& row);

} // namespace Quillane::Office
