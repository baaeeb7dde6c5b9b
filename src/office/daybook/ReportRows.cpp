#include "office/daybook/ReportRows.h"

#include <algorithm>

namespace Quillane::Office {

const std::vector<ColumnHeading>& HeadingsOf(PrintedTable table) {
    switch (table) {
    case PrintedTable::ByDay:
        return SumHeadings(SumsBy::Day);
    case PrintedTable::ByParty:
        return SumHeadings(SumsBy::Party);
    case PrintedTable::ByCommodity:
        return SumHeadings(SumsBy::Commodity);
    default:
        return ArrivalHeadings();
    }
}

ReportRows::ReportRows() {
    for (int table = 0; table < PrintedTableCount; ++table)
        mostCells_ = std::max(mostCells_, HeadingsOf(static_cast<PrintedTable>(table)).size());
    std::vector<std::string> names{"Title", "Table", "IsEnd"};
    for (std::size_t cell = 0; cell < mostCells_; ++cell)
        names.push_back("Cell" + std::to_string(cell));
    rows_.SetColumns(std::move(names));
}

void ReportRows::BeginTable(PrintedTable table, std::string_view title) {
    table_ = table;
    title_ = title;
}

void ReportRows::AddRow(const std::vector<Cell>& cells, bool isEnd) {
    rows_.BeginRow();
    if (title_.empty())
        rows_.AddNull();
    else
        rows_.AddText(title_);
    title_.clear();
    rows_.AddWhole(static_cast<int>(table_));
    rows_.AddWhole(isEnd ? 1 : 0);
    for (std::size_t index = 0; index < mostCells_; ++index)
        rows_.AddText(index < cells.size() ? cells[index].Shown() : std::string());
}

void ReportRows::AddEmptyRow() {
    table_ = static_cast<PrintedTable>(PrintedTableCount);
    AddRow({});
}

} // namespace Quillane::Office
