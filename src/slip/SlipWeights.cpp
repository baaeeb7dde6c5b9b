#include "slip/SlipFigures.h"
#include "slip/SlipParts.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Right = ReportAlignment::Right;
using FigureOf = double (*)(const SlipTotals&);

double BagsOf(const SlipTotals& totals) {
    return totals.bags;
}
double TareOf(const SlipTotals& totals) {
    return totals.tare;
}
double GrossOf(const SlipTotals& totals) {
    return totals.gross;
}
double DeductionOf(const SlipTotals& totals) {
    return totals.deduction;
}
double NetOf(const SlipTotals& totals) {
    return totals.Net();
}

ReportObject Total(Place place, const char* name, FigureOf figure, std::string (*shown)(double)) {
    return Aligned(
        Formula(place, name,
                [figure, shown](const Recordset& rows) { return shown(figure(TotalsOf(rows))); }),
        Right);
}

// ---- The totals of the table
// ---------------------------------------------------------------------

void AddTotals(std::vector<ReportObject>& objects) {
    constexpr int height = 340;
    const auto add = [&](ReportObject object) {
        objects.push_back(Cell(Bold(std::move(object)), PaleGreen));
    };
    const auto place = [](TableColumn column) { return CellPlace(column, 0, height); };
    add(Aligned(Text({0, 0, ColumnEdges[Bags], height}, "Total"), Right));
    add(Total(place(Bags), "TotalBags", BagsOf, Kilograms));
    add(Text(place(PerBag), ""));
    add(Total(place(Gross), "TotalGross", GrossOf, ColumnKilograms));
    add(Total(place(Deduction), "TotalDeduction", DeductionOf, ColumnKilograms));
    add(Total(place(Net), "TotalNet", NetOf, ColumnKilograms));
}

// ---- The weights: what the scale read, and what is left of it
// ------------------------------------

constexpr int boxLeft = 5866;
constexpr int boxTop = 560;
constexpr int boxWidth = PageWidth - boxLeft;
constexpr int rowHeight = 340;
constexpr int resultTop = boxTop + 1480;
constexpr int resultHeight = 1020;

Place FigurePlace(int top, int height) {
    return {boxLeft + 2000, top, 2080, height};
}

ReportObject Caption(int top, int height, const char* caption) {
    return Text({boxLeft + 140, top, 2200, height}, caption);
}

ReportObject Unit(int top, int height) {
    return Coloured(Text({boxLeft + 4150, top, 400, height}, "kg"), CaptionGrey);
}

void AddWeights(std::vector<ReportObject>& objects) {
    objects.push_back(Box({boxLeft, boxTop, boxWidth, resultTop - boxTop}, PaleGreen));
    int top = boxTop + 60;
    const auto add = [&](const char* caption, ReportObject figure) {
        objects.push_back(Sized(Caption(top, rowHeight, caption), 10));
        objects.push_back(Sized(Aligned(std::move(figure), Right), 11));
        objects.push_back(Unit(top, rowHeight));
        top += rowHeight;
    };
    const auto place = [&] { return FigurePlace(top, rowHeight); };
    add("Initial Gross Weight", Parameter(place(), SlipParameter::InitialGrossWeight));
    add("Tare Weight", Total(place(), "TotalTare", TareOf, Kilograms));
    add("Gross Weight", Total(place(), "GrossWeight", GrossOf, Kilograms));
    add("Deduction", Total(place(), "AllDeductions", DeductionOf, Kilograms));
}

void AddResult(std::vector<ReportObject>& objects) {
    constexpr int height = 460;
    objects.push_back(Box({boxLeft, resultTop, boxWidth, resultHeight}, HeadGreen));
    const auto add = [&](int top, const char* caption, int parameter, int points) {
        objects.push_back(Bold(Sized(Caption(top, height, caption), 12)));
        objects.push_back(
            Bold(Sized(Aligned(Parameter(FigurePlace(top, height), parameter), Right), points)));
    };
    add(resultTop + 40, "Net Weight", SlipParameter::NetWeight, 18);
    objects.push_back(Unit(resultTop + 40, height));
    add(resultTop + 520, "Mounds - Kgs", SlipParameter::Mounds, 14);
}

// ---- Beside them
// -----------------------------------------------------------------------------------

/// The weights do not add up without it. The station itself stores one only where a rate was given.
std::string ScaleDeductionNote(const Recordset& rows) {
    const double kilograms = TotalsOf(rows).scaleDeduction;
    if (kilograms == 0)
        return {};
    return "The gross weight is after a scale deduction of " + Kilograms(kilograms) + " kg.";
}

void AddSignature(std::vector<ReportObject>& objects, int top, const char* who) {
    constexpr int width = 4600;
    objects.push_back(Line({0, top, width, 0}));
    objects.push_back(Coloured(Text({0, top + 40, width, 260}, who), CaptionGrey));
}

} // namespace

ReportSection Weights() {
    ReportSection section{
        "ReportFooterSection1", resultTop + resultHeight + 40, {}, ReportSectionKind::ReportFooter};
    AddTotals(section.Objects);
    AddWeights(section.Objects);
    AddResult(section.Objects);
    section.Objects.push_back(
        Growing(Formula({0, boxTop, 5400, 280}, "ScaleDeductionNote", ScaleDeductionNote)));
    AddSignature(section.Objects, boxTop + 1100, "Weighbridge operator");
    AddSignature(section.Objects, boxTop + 2200, "Driver");
    return section;
}

} // namespace Quillane::SlipParts
