#include "slip/SlipParts.h"
#include "slip/SlipRounding.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Left = ReportAlignment::Left;
constexpr auto Right = ReportAlignment::Right;
constexpr int headHeight = 360;
constexpr int rowHeight = 300;
constexpr int totalHeight = 340;

ReportObject Head(TableColumn column, int top, const char* caption, ReportAlignment alignment) {
    return Cell(Bold(Aligned(Text(CellArea(column, top, headHeight), caption), alignment)),
                HeadGreen);
}

ReportObject Figure(TableColumn column, const char* name,
                    std::function<std::string(const Recordset&)> formula) {
    return Cell(
        Aligned(RowFormula(CellArea(column, 0, rowHeight), name, std::move(formula)), Right));
}

/// Returns the bag line at the current row.
ReportObject LineFigure(TableColumn column, const char* name, double (*figure)(const SlipLine&)) {
    const auto formula = [figure](const ReportContext& context) {
        const auto& lines = FiguresOf(context).lines.lines;
        return ColumnKilograms(
            figure(lines.at(static_cast<std::size_t>(context.rows->Position()))));
    };
    return Cell(Aligned(Formula(CellArea(column, 0, rowHeight), name, formula), Right));
}

double GrossOf(const SlipLine& line) {
    return line.gross;
}
double DeductionOf(const SlipLine& line) {
    return line.deduction;
}
double NetOf(const SlipLine& line) {
    return line.Net();
}

std::string NumberOf(const Recordset& rows) {
    return std::to_string(rows.Position() + 1);
}

std::string WeightOfBag(const Recordset& rows) {
    const Value weight = rows.Fields("BagWeight");
    return weight.IsNull() ? std::string() : ColumnKilograms(weight.Number());
}

// ---- The end of the table ----

ReportObject TotalCell(ReportObject object) {
    return Cell(Bold(std::move(object)), PaleGreen);
}

/// Empty without rows.
ReportObject Total(TableColumn column, const char* name,
                   std::function<std::string(const SlipLines&)> text) {
    const auto formula = [text = std::move(text)](const ReportContext& context) {
        return context.rows ? text(FiguresOf(context).lines) : std::string();
    };
    return TotalCell(Aligned(Formula(CellArea(column, 0, totalHeight), name, formula), Right));
}

ReportObject LineTotal(TableColumn column, const char* name, double (*figure)(const SlipLine&)) {
    return Total(column, name,
                 [figure](const SlipLines& lines) { return ColumnKilograms(figure(lines.total)); });
}

void AddSignature(Objects& objects, int left, const char* who) {
    constexpr int top = 960;
    constexpr int width = 4600;
    objects.push_back(Line({left, top, width, 0}));
    objects.push_back(Coloured(Text({left, top + 40, width, 240}, who), CaptionGrey));
}

} // namespace

ReportSection TableHead() {
    ReportSection section{"PageHeaderSection1", 0, {}, ReportSectionKind::PageHeader};
    const int top = AddFurtherHeading(section.Objects);
    const auto add = [&](TableColumn column, const char* caption, ReportAlignment alignment) {
        section.Objects.push_back(Head(column, top, caption, alignment));
    };
    add(Number, "No.", Right);
    add(Class, "Bag class", Left);
    add(Type, "Bag type", Left);
    add(Bags, "Bags", Right);
    add(PerBag, "Kg per bag", Right);
    add(Gross, "Gross kg", Right);
    add(Deduction, "Deduct. kg", Right);
    add(Net, "Net kg", Right);
    section.Height = top + headHeight;
    return section;
}

ReportSection TableRow() {
    return {"DetailSection1",
            rowHeight,
            {Figure(Number, "Number", NumberOf),
             Cell(Growing(Column(CellArea(Class, 0, rowHeight), "BagsClass"))),
             Cell(Growing(Column(CellArea(Type, 0, rowHeight), "BagsType"))),
             Cell(Aligned(Column(CellArea(Bags, 0, rowHeight), "NoOfBags"), Right)),
             Figure(PerBag, "WeightOfBag", WeightOfBag), LineFigure(Gross, "Gross", GrossOf),
             LineFigure(Deduction, "Deduction", DeductionOf), LineFigure(Net, "Net", NetOf)},
            ReportSectionKind::Detail};
}

ReportSection TableEnd() {
    ReportSection section{"ReportFooterSection1", 1240, {}, ReportSectionKind::ReportFooter};
    section.Objects = {
        TotalCell(Aligned(Text({0, 0, ColumnEdges[Bags], totalHeight}, "Total"), Right)),
        Total(Bags, "TotalBags", [](const SlipLines& lines) { return BagCount(lines.bags); }),
        TotalCell(Text(CellArea(PerBag, 0, totalHeight), "")),
        LineTotal(Gross, "TotalGross", GrossOf),
        LineTotal(Deduction, "TotalDeduction", DeductionOf),
        LineTotal(Net, "TotalNet", NetOf)};
    AddSignature(section.Objects, 0, "Weighbridge operator");
    AddSignature(section.Objects, PageWidth - 4600, "Driver");
    return section;
}

} // namespace Quillane::SlipParts
