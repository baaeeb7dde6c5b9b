#include "office/daybook/Cells.h"
#include "office/daybook/Export.h"
#include "office/records/Csv.h"

namespace Quillane::Office {

namespace {

constexpr std::string_view insideColumn = "StillInside";

std::string HeadingLine(const std::vector<ColumnHeading>& headings, std::string_view last = {}) {
    std::vector<std::string> names;
    for (const ColumnHeading& heading : headings)
        names.emplace_back(heading.plain);
    if (!last.empty())
        names.emplace_back(last);
    return std::string(Utf8Mark) + CsvLine(names);
}

std::vector<std::string> PlainCells(const std::vector<Cell>& cells) {
    std::vector<std::string> texts;
    texts.reserve(cells.size() + 1);
    for (const Cell& cell : cells)
        texts.push_back(cell.Plain());
    return texts;
}

bool ReadToEnd(DayBook& book, const GoOn& goOn) {
    while (book.ReadOn())
        if (!goOn(book))
            return false;
    return true;
}

} // namespace

bool WriteArrivalsCsv(DayBook& book, const TextSink& sink, const GoOn& goOn) {
    sink(HeadingLine(ArrivalHeadings(), insideColumn));
    book.Visit = [&](const Arrival& arrival) {
        std::vector<std::string> cells = PlainCells(CellsOf(arrival, book.Names()));
        cells.emplace_back(arrival.isInside ? "1" : "0");
        sink(CsvLine(cells));
    };
    const bool isWhole = ReadToEnd(book, goOn);
    book.Visit = {};
    return isWhole;
}

bool WriteSumsCsv(DayBook& book, SumsBy by, const TextSink& sink, const GoOn& goOn) {
    if (!ReadToEnd(book, goOn))
        return false;
    sink(HeadingLine(SumHeadings(by)));
    for (const NamedSum& sum : book.Sums().By(by, book.Names()))
        sink(CsvLine(PlainCells(CellsOf(sum, by))));
    return true;
}

} // namespace Quillane::Office
