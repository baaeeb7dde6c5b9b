#include "slip/SlipDesign.h"

#include "slip/SlipFigures.h"
#include "slip/SlipObjects.h"

#include <array>

namespace Quillane {

using namespace SlipObjects;

namespace {

constexpr int width = 10466; ///< of A4 between the margins
constexpr auto Right = ReportAlignment::Right;
constexpr auto Centre = ReportAlignment::Centre;

// The columns of the table: left edges, and the right edge of the last.
constexpr std::array<int, 9> edges{0, 480, 2860, 5240, 6066, 7166, 8316, 9366, width};
enum TableColumn { Number, Class, Type, Bags, PerBag, Gross, Deduction, Net };

Place CellPlace(TableColumn column, int top, int height) {
    return {edges[column], top, edges[column + 1] - edges[column], height};
}

// ---- Report header: who we are, and what has arrived -------------------------------------------

void AddHeading(std::vector<ReportObject>& objects) {
    constexpr int half = width / 2;
    constexpr int gap = 150;
    objects.push_back(Coloured(
        Aligned(
            Growing(Bold(Sized(Parameter({0, 0, width, 520}, SlipParameter::CompanyTitle), 22))),
            Centre),
        DarkGreen));
    objects.push_back(
        Aligned(Growing(Sized(Parameter({0, 540, width, 260}, SlipParameter::CompanyAddress), 10)),
                Centre));
    objects.push_back(
        Aligned(Parameter({0, 820, half - gap, 240}, SlipParameter::CompanyPhone), Right));
    objects.push_back(Parameter({half + gap, 820, half - gap, 240}, SlipParameter::CompanyEmail));
}

void AddTitle(std::vector<ReportObject>& objects) {
    objects.push_back(Box({0, 1180, width, 420}, BandGreen));
    ReportObject title = At(ReportObjectKind::Field, {0, 1180, width, 420});
    title.field.source = ReportField::Source::ReportTitle;
    objects.push_back(Coloured(Aligned(Bold(Sized(title, 14)), Centre), DarkGreen));
}

constexpr int particularsTop = 1720;
constexpr int rowHeight = 330;

void AddCaption(std::vector<ReportObject>& objects, int left, int row, const char* caption) {
    const int top = particularsTop + 60 + row * rowHeight;
    objects.push_back(Coloured(Text({left, top, 1200, rowHeight}, caption), CaptionGrey));
}

Place ValuePlace(bool inRightHalf, int row) {
    const int top = particularsTop + 60 + row * rowHeight;
    return inRightHalf ? Place{7640, top, 2726, rowHeight} : Place{1220, top, 4900, rowHeight};
}

std::string WithComma(const std::string& first, const std::string& second) {
    return first.empty() || second.empty() ? first + second : first + ", " + second;
}

std::string AddressOf(const Recordset& rows) {
    return WithComma(rows.Fields("Address").TextOrEmpty(), rows.Fields("CityName").TextOrEmpty());
}

/// Only rows that other programs wrote have any of the three.
std::string ReferenceOf(const Recordset& rows) {
    std::string reference;
    for (const auto& [caption, column] : {std::pair{"Centre ", "CenterName"},
                                          {"Contract with ", "CPartyName"},
                                          {"Permit ", "PermitNo"}}) {
        const std::string text = rows.Fields(column).TextOrEmpty();
        if (!text.empty())
            reference = WithComma(reference, caption + text);
    }
    return reference;
}

std::string ReferenceCaptionOf(const Recordset& rows) {
    return ReferenceOf(rows).empty() ? "" : "Reference";
}

auto FirstText(const char* column) {
    return [column](const Recordset& rows) { return FirstTextOf(rows, column); };
}

void AddParty(std::vector<ReportObject>& objects) {
    constexpr int left = 120;
    AddCaption(objects, left, 0, "Party");
    objects.push_back(Growing(Bold(Sized(Column(ValuePlace(false, 0), "PartyName"), 11))));
    AddCaption(objects, left, 1, "Address");
    objects.push_back(Growing(Sized(Formula(ValuePlace(false, 1), "Address", AddressOf), 10)));
    AddCaption(objects, left, 2, "Commodity");
    objects.push_back(Growing(Bold(Sized(Column(ValuePlace(false, 2), "CommodityName"), 10))));
    AddCaption(objects, left, 3, "Driver");
    objects.push_back(
        Growing(Sized(Formula(ValuePlace(false, 3), "Driver", FirstText("DriverName")), 10)));
    objects.push_back(Coloured(Formula({left, particularsTop + 60 + 4 * rowHeight, 1200, rowHeight},
                                       "ReferenceCaption", ReferenceCaptionOf),
                               CaptionGrey));
    objects.push_back(Growing(Sized(Formula(ValuePlace(false, 4), "Reference", ReferenceOf), 10)));
}

void AddArrival(std::vector<ReportObject>& objects) {
    constexpr int left = 6380;
    AddCaption(objects, left, 0, "Arrival No.");
    objects.push_back(Bold(Sized(Column(ValuePlace(true, 0), "ArrivalId"), 12)));
    AddCaption(objects, left, 1, "Date");
    ReportObject date = Column(ValuePlace(true, 1), "ArrivalDate");
    date.field.format = ReportFormat::DateOnly;
    objects.push_back(Sized(date, 10));
    AddCaption(objects, left, 2, "Vehicle No.");
    objects.push_back(
        Bold(Sized(Formula(ValuePlace(true, 2), "Vehicle", FirstText("VehicleNo")), 10)));
    AddCaption(objects, left, 3, "Bilty No.");
    objects.push_back(Sized(Formula(ValuePlace(true, 3), "Bilty", FirstText("BiltyNo")), 10));
}

ReportSection ReportHeader() {
    ReportSection section{"ReportHeaderSection1", 3720, {}, ReportSectionKind::ReportHeader};
    constexpr int boxHeight = 5 * rowHeight + 120;
    AddHeading(section.Objects);
    AddTitle(section.Objects);
    section.Objects.push_back(Box({0, particularsTop, width, boxHeight}, PaleGreen));
    section.Objects.push_back(Line({6250, particularsTop, 0, boxHeight}));
    AddParty(section.Objects);
    AddArrival(section.Objects);
    return section;
}

// ---- The table of bag lines
// ----------------------------------------------------------------------

ReportSection PageHeader() {
    ReportSection section{"PageHeaderSection1", 360, {}, ReportSectionKind::PageHeader};
    const auto add = [&](TableColumn column, const char* caption, ReportAlignment alignment) {
        section.Objects.push_back(
            Cell(Bold(Aligned(Text(CellPlace(column, 0, 360), caption), alignment)), HeadGreen));
    };
    add(Number, "No.", Right);
    add(Class, "Bag class", ReportAlignment::Left);
    add(Type, "Bag type", ReportAlignment::Left);
    add(Bags, "Bags", Right);
    add(PerBag, "Kg per bag", Right);
    add(Gross, "Gross kg", Right);
    add(Deduction, "Deduct. kg", Right);
    add(Net, "Net kg", Right);
    return section;
}

ReportSection Detail() {
    constexpr int height = 300;
    ReportSection section{"DetailSection1", height, {}, ReportSectionKind::Detail};
    auto& objects = section.Objects;
    const auto figure = [&](TableColumn column, const char* name, auto valueOf) {
        objects.push_back(
            Cell(Aligned(Formula(CellPlace(column, 0, height), name,
                                 [valueOf](const Recordset& rows) { return valueOf(rows); }),
                         Right)));
    };
    figure(Number, "Number",
           [](const Recordset& rows) { return std::to_string(rows.Position() + 1); });
    objects.push_back(Cell(Growing(Column(CellPlace(Class, 0, height), "BagsClass"))));
    objects.push_back(Cell(Growing(Column(CellPlace(Type, 0, height), "BagsType"))));
    objects.push_back(Cell(Aligned(Column(CellPlace(Bags, 0, height), "NoOfBags"), Right)));
    figure(PerBag, "WeightOfBag", [](const Recordset& rows) {
        const Value weight = rows.Fields("BagWeight");
        return weight.IsNull() ? std::string() : ColumnKilograms(weight.Number());
    });
    figure(Gross, "Gross",
           [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).gross); });
    figure(Deduction, "Deduction",
           [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).deduction); });
    figure(Net, "Net", [](const Recordset& rows) { return ColumnKilograms(LineOf(rows).Net()); });
    return section;
}

void AddTotals(std::vector<ReportObject>& objects) {
    constexpr int height = 340;
    objects.push_back(
        Cell(Bold(Aligned(Text({0, 0, edges[Bags], height}, "Total"), Right)), PaleGreen));
    const auto total = [&](TableColumn column, const char* name, auto valueOf) {
        objects.push_back(Cell(Bold(Aligned(Formula(CellPlace(column, 0, height), name,
                                                    [valueOf](const Recordset& rows) {
                                                        return valueOf(TotalsOf(rows));
                                                    }),
                                            Right)),
                               PaleGreen));
    };
    total(Bags, "TotalBags", [](const SlipTotals& totals) { return Kilograms(totals.bags); });
    objects.push_back(Cell(Text(CellPlace(PerBag, 0, height), ""), PaleGreen));
    total(Gross, "TotalGross",
          [](const SlipTotals& totals) { return ColumnKilograms(totals.gross); });
    total(Deduction, "TotalDeduction",
          [](const SlipTotals& totals) { return ColumnKilograms(totals.deduction); });
    total(Net, "TotalNet", [](const SlipTotals& totals) { return ColumnKilograms(totals.Net()); });
}

// ---- The weights and the signatures
// --------------------------------------------------------------

constexpr int weightsLeft = 5866;
constexpr int weightsTop = 560;
constexpr int weightsWidth = width - weightsLeft;

void AddWeight(std::vector<ReportObject>& objects, int top, const char* caption,
               ReportObject figure) {
    constexpr int height = 340;
    objects.push_back(Sized(Text({weightsLeft + 120, top, 2200, height}, caption), 10));
    figure.Left = weightsLeft + 2300;
    figure.Top = top;
    figure.Width = 1700;
    figure.Height = height;
    objects.push_back(Aligned(Sized(std::move(figure), 11), Right));
    objects.push_back(Coloured(Text({weightsLeft + 4080, top, 450, height}, "kg"), CaptionGrey));
}

ReportObject TotalKilograms(const char* name, double (*valueOf)(const SlipTotals&)) {
    return Formula({}, name,
                   [valueOf](const Recordset& rows) { return Kilograms(valueOf(TotalsOf(rows))); });
}

void AddWeights(std::vector<ReportObject>& objects) {
    objects.push_back(Box({weightsLeft, weightsTop, weightsWidth, 2500}, PaleGreen));
    AddWeight(objects, weightsTop + 60, "Initial Gross Weight",
              Parameter({}, SlipParameter::InitialGrossWeight));
    AddWeight(objects, weightsTop + 400, "Tare Weight",
              TotalKilograms("Tare", [](const SlipTotals& totals) { return totals.tare; }));
    AddWeight(objects, weightsTop + 740, "Gross Weight",
              TotalKilograms("GrossWeight", [](const SlipTotals& totals) { return totals.gross; }));
    AddWeight(objects, weightsTop + 1080, "Deduction",
              TotalKilograms("OtherDeduction",
                             [](const SlipTotals& totals) { return totals.deduction; }));
}

void AddResult(std::vector<ReportObject>& objects) {
    constexpr int top = weightsTop + 1480;
    objects.push_back(Box({weightsLeft, top, weightsWidth, 1020}, HeadGreen));
    const auto add = [&](int rowTop, const char* caption, int parameter, int points) {
        objects.push_back(Bold(Sized(Text({weightsLeft + 120, rowTop, 2000, 460}, caption), 12)));
        objects.push_back(Aligned(
            Bold(Sized(Parameter({weightsLeft + 2000, rowTop, 2000, 460}, parameter), points)),
            Right));
    };
    add(top + 40, "Net Weight", SlipParameter::NetWeight, 18);
    objects.push_back(Coloured(Text({weightsLeft + 4080, top + 60, 450, 460}, "kg"), CaptionGrey));
    add(top + 520, "Mounds - Kgs", SlipParameter::Mounds, 14);
}

std::string ScaleDeductionNote(const Recordset& rows) {
    const double kilograms = TotalsOf(rows).scaleDeduction;
    return kilograms == 0
               ? std::string()
               : "The gross weight is after a scale deduction of " + Kilograms(kilograms) + " kg.";
}

void AddSignatures(std::vector<ReportObject>& objects) {
    constexpr int signatureWidth = 4600;
    objects.push_back(
        Formula({0, weightsTop, 5500, 280}, "ScaleDeductionNote", ScaleDeductionNote));
    const auto add = [&](int top, const char* who) {
        ReportObject line = Line({0, top, signatureWidth, 0});
        line.LineColor = 0;
        objects.push_back(std::move(line));
        objects.push_back(Coloured(Text({0, top + 40, signatureWidth, 260}, who), CaptionGrey));
    };
    add(weightsTop + 1080, "Weighbridge operator");
    add(weightsTop + 2200, "Driver");
}

ReportSection ReportFooter() {
    ReportSection section{"ReportFooterSection1", 3100, {}, ReportSectionKind::ReportFooter};
    AddTotals(section.Objects);
    AddWeights(section.Objects);
    AddResult(section.Objects);
    AddSignatures(section.Objects);
    return section;
}

std::string FootLine(const Recordset& rows) {
    return "Arrival No. " + rows.Fields("ArrivalId").TextOrEmpty();
}

ReportSection PageFooter() {
    ReportSection section{"PageFooterSection1", 360, {}, ReportSectionKind::PageFooter};
    section.Objects.push_back(Line({0, 100, width, 0}));
    section.Objects.push_back(
        Coloured(Sized(Formula({0, 120, width / 2, 240}, "Foot", FootLine), 8), CaptionGrey));
    ReportObject pages = At(ReportObjectKind::Field, {width / 2, 120, width / 2, 240});
    pages.field.source = ReportField::Source::PageNofM;
    section.Objects.push_back(Coloured(Aligned(Sized(pages, 8), Right), CaptionGrey));
    return section;
}

} // namespace

std::vector<ReportSection> SlipSections() {
    return {ReportHeader(), PageHeader(), Detail(), ReportFooter(), PageFooter()};
}

std::string SlipFileName(const Report& slip) {
    const auto& rows = slip.Database.Data();
    if (!rows || rows->State() != adStateOpen || rows->RecordCount() == 0)
        return "Slip";
    Recordset view = rows->Clone();
    view.MoveFirst();
    return "Slip " + view.Fields("ArrivalId").TextOrEmpty();
}

} // namespace Quillane
