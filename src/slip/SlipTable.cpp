#include "slip/SlipFigures.h"
#include "slip/SlipParts.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Left = ReportAlignment::Left;
constexpr auto Right = ReportAlignment::Right;
constexpr int headHeight = 360;
constexpr int rowHeight = 300;

ReportObject Head(TableColumn column, const char* caption, ReportAlignment alignment) {
    return Cell(Bold(Aligned(Text(CellPlace(column, 0, headHeight), caption), alignment)),
                HeadGreen);
}

ReportObject Figure(TableColumn column, const char* name,
                    std::function<std::string(const Recordset&)> formula) {
    return Cell(Aligned(Formula(CellPlace(column, 0, rowHeight), name, std::move(formula)), Right));
}

std::string WeightOfBag(const Recordset& rows) {
    const Value weight = rows.Fields("BagWeight");
    return weight.IsNull() ? std::string() : ColumnKilograms(weight.Number());
}

} // namespace

ReportSection TableHead() {
    return {"PageHeaderSection1",
            headHeight,
            {Head(Number, "No.", Right), Head(Class, "Bag class", Left),
             Head(Type, "Bag type", Left), Head(Bags, "Bags", Right),
             Head(PerBag, "Kg per bag", Right), Head(Gross, "Gross kg", Right),
             Head(Deduction, "Deduct. kg", Right), Head(Net, "Net kg", Right)},
            ReportSectionKind::PageHeader};
}

ReportSection TableRow() {
    ReportSection section{"DetailSection1", rowHeight, {}, ReportSectionKind::Detail};
    section.Objects = {
        Figure(Number, "Number",
               [](const Recordset& rows) { return std::to_string(rows.Position() + 1); }),
        Cell(Growing(Column(CellPlace(Class, 0, rowHeight), "BagsClass"))),
        Cell(Growing(Column(CellPlace(Type, 0, rowHeight), "BagsType"))),
        Cell(Aligned(Column(CellPlace(Bags, 0, rowHeight), "NoOfBags"), Right)),
        Figure(PerBag, "WeightOfBag", WeightOfBag),
        Figure(Gross, "Gross",
               [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).gross); }),
        Figure(Deduction, "Deduction",
               [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).deduction); }),
        Figure(Net, "Net",
               [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).Net()); })};
    return section;
}

} // namespace Quillane::SlipParts
