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

/// The columns of a printed day book's data; from `FirstCell` on texts as they are printed, one for
/// each heading of the row's table.
namespace PrintedColumn {
inline constexpr int Title = 0; ///< of a table, in its first row; else Null
inline constexpr int Table = 1;
inline constexpr int IsEnd = 2; ///< 1: the sum that ends a table
inline constexpr int FirstCell = 3;
} // namespace PrintedColumn

/// Collects the rows of a printed day book.
class ReportRows {
public:
    ReportRows();

    void BeginTable(PrintedTable table, std::string_view title);
    void AddRow(const std::vector<Cell>& cells, bool isEnd = false);
    /// A row without height. What follows the rows is then not kept with a table's last row.
    void AddEmptyRow();
    ResultSet Take() { return std::move(rows_); }

private:
    ResultSet rows_;
    std::size_t mostCells_ = 0;
    PrintedTable table_ = PrintedTable::Arrivals;
    std::string title_;
};

} // namespace Quillane::Office
