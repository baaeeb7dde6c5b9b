#include "office/daybook/Cells.h"
#include "office/daybook/Export.h"
#include "office/daybook/Workbook.h"

namespace Quillane::Office {

bool WriteWorkbook(DayBook& book, const std::string& path, const GoOn& goOn) {
    Workbook workbook(path);
    workbook.BeginSheet(TitleOfArrivals(), ArrivalHeadings());
    book.Visit = [&](const Arrival& arrival) { workbook.AddRow(CellsOf(arrival, book.Names())); };
    while (book.ReadOn())
        if (!goOn(book))
            return false;
    book.Visit = {};
    workbook.AddRow(CellsBelowArrivals(book.Sums().All()), true);
    for (const SumsBy by : {SumsBy::Day, SumsBy::Party, SumsBy::Commodity}) {
        workbook.BeginSheet(TitleOf(by), SumHeadings(by));
        for (const NamedSum& sum : book.Sums().By(by, book.Names()))
            workbook.AddRow(CellsOf(sum, by));
        workbook.AddRow(CellsBelowSums(book.Sums().All(), by), true);
    }
    workbook.Finish();
    return true;
}

} // namespace Quillane::Office
