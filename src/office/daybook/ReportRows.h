#pragma once

#include "office/daybook/Cells.h"
#include "platform/ado/ResultSet.h"

#include <string_view>
#include <vector>

namespace Quillane::Office {

/// The tables of a printed day book.
enum class PrintedTable { Arrivals, ByDay, ByParty, ByCommodity };
inline constexpr int PrintedTableCount = 4;

const std::vector<ColumnHeading>& HeadingsOf(PrintedTable table);

/// The columns of the data of a printed day book. From `FirstCell` on they hold the printed texts,
/// one for each heading of the table.
namespace PrintedColumn {
inline constexpr int Title = 0; ///< title of the table in its first row; otherwise Null
inline constexpr int Table = 1;
inline constexpr int IsEnd = 2; ///< 1: the total of a table
inline constexpr int FirstCell = 3;
} // namespace PrintedColumn

/// Collects the rows of a printed day book.
class ReportRows {
public:
    ReportRows();

    void BeginTable(PrintedTable table, std::string_view title);
    void AddRow(const std::vector<Cell>& cells, bool isEnd = false);
    /// Adds a row without height, so that the report footer is not kept together with the last row
    /// of a table.
    void AddEmptyRow();
    ResultSet Take() { return std::move(rows_); }

private:
    ResultSet rows_;
    std::size_t mostCells_ = 0;
    PrintedTable table_ = PrintedTable::Arrivals;
    std::string title_;
};

} // namespace Quillane::Office
