#include "slip/SlipFilling.h"
#include "slip/SlipParts.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Centre = ReportAlignment::Centre;

/// A caption is only shown with a value.
ReportObject OnlyWithValue(const ReportObject& parameter) {
    return Suppressed(parameter,
                      [position = parameter.field.parameter](const ReportContext& context) {
                          return IsCaptionAlone(context.report.ParameterFields(position).Shown());
                      });
}

void AddCompany(Objects& objects) {
    const auto parameter = [](int top, int height, int position, int points) {
        return Aligned(Growing(Sized(Parameter({0, top, PageWidth, height}, position), points)),
                       Centre);
    };
    objects.push_back(
        Coloured(Bold(parameter(0, 520, SlipParameter::CompanyTitle, 22)), DarkGreen));
    objects.push_back(parameter(540, 260, SlipParameter::CompanyAddress, 10));
    objects.push_back(OnlyWithValue(parameter(800, 230, SlipParameter::CompanyPhone, 9)));
    objects.push_back(OnlyWithValue(parameter(1030, 230, SlipParameter::CompanyEmail, 9)));
}

void AddTitle(Objects& objects) {
    constexpr Area area{0, 1380, PageWidth, 420};
    objects.push_back(FilledBox(area, BandGreen));
    ReportObject title = At(ReportObjectKind::Field, area);
    title.field.source = ReportField::Source::ReportTitle;
    objects.push_back(Coloured(Aligned(Bold(Sized(title, 14)), Centre), DarkGreen));
}

// ---- Captions and values in two halves ----

constexpr int rowHeight = 330;
constexpr int middle = 6250;

enum class Half { Left, Right };

struct Row {
    Half half;
    int top;
};

Area CaptionArea(Row row) {
    return {row.half == Half::Left ? 120 : middle + 130, row.top, 1200, rowHeight};
}

Area ValueArea(Row row) {
    Area area = CaptionArea(row);
    area.left += row.half == Half::Left ? 1100 : 1240;
    area.width = row.half == Half::Left ? 4900 : 2746;
    return area;
}

ReportObject Caption(Row row, const char* caption) {
    return Coloured(Text(CaptionArea(row), caption), CaptionGrey);
}

ReportObject ColumnValue(Row row, const char* column) {
    return Growing(Sized(Column(ValueArea(row), column), 10));
}

ReportObject DateValue(Row row, const char* column) {
    ReportObject value = ColumnValue(row, column);
    value.field.format = ReportFormat::DateOnly;
    return value;
}

/// Over all rows.
ReportObject TextValue(Row row, const char* column,
                       std::string (*textOf)(const Recordset&, std::string_view)) {
    const auto formula = [column, textOf](const Recordset& rows) { return textOf(rows, column); };
    return Growing(Sized(RowFormula(ValueArea(row), column, formula), 10));
}

/// Usually one row has the vehicle. If several have one, the screen shows the last.
ReportObject Vehicle(Row row) {
    return Bold(TextValue(row, "VehicleNo", LastTextOf));
}

// ---- The details of the arrival ----

/// Only rows that other programs wrote have any of the three.
std::string ReferenceOf(const Recordset& rows) {
    std::string reference;
    for (const auto& [caption, column] : {std::pair{"Centre ", "CenterName"},
                                          {"Contract ", "CPartyName"},
                                          {"Permit ", "PermitNo"}}) {
        const std::string text = rows.Fields(column).TextOrEmpty();
        if (!text.empty())
            reference += (reference.empty() ? "" : ", ") + (caption + text);
    }
    return reference;
}

bool HasNoReference(const ReportContext& context) {
    return !context.rows || ReferenceOf(*context.rows).empty();
}

void AddParty(Objects& objects, int top) {
    const auto row = [top](int number) { return Row{Half::Left, top + number * rowHeight}; };
    objects.push_back(Caption(row(0), "Party"));
    objects.push_back(Bold(Sized(ColumnValue(row(0), "PartyName"), 11)));
    objects.push_back(Caption(row(1), "Address"));
    objects.push_back(ColumnValue(row(1), "Address"));
    objects.push_back(Caption(row(2), "City"));
    objects.push_back(ColumnValue(row(2), "CityName"));
    objects.push_back(Caption(row(3), "Commodity"));
    objects.push_back(Bold(ColumnValue(row(3), "CommodityName")));
    objects.push_back(Caption(row(4), "Driver"));
    objects.push_back(TextValue(row(4), "DriverName", FirstTextOf));
}

void AddArrival(Objects& objects, int top) {
    const auto row = [top](int number) { return Row{Half::Right, top + number * rowHeight}; };
    objects.push_back(Caption(row(0), "Arrival No."));
    objects.push_back(Bold(Sized(Column(ValueArea(row(0)), "ArrivalId"), 12)));
    objects.push_back(Caption(row(1), "Date"));
    objects.push_back(DateValue(row(1), "ArrivalDate"));
    objects.push_back(Caption(row(2), "Vehicle No."));
    objects.push_back(Vehicle(row(2)));
    objects.push_back(Caption(row(3), "Bilty No."));
    objects.push_back(TextValue(row(3), "BiltyNo", FirstTextOf));
    objects.push_back(Suppressed(Caption(row(4), "Reference"), HasNoReference));
    objects.push_back(Growing(Sized(RowFormula(ValueArea(row(4)), "Reference", ReferenceOf), 9)));
}

} // namespace

int AddParticulars(Objects& objects) {
    constexpr int top = 1920;
    constexpr int height = 5 * rowHeight + 120;
    AddCompany(objects);
    AddTitle(objects);
    objects.push_back(FilledBox({0, top, PageWidth, height}, PaleGreen));
    objects.push_back(Line({middle, top, 0, height}));
    AddParty(objects, top + 60);
    AddArrival(objects, top + 60);
    return top + height + 120;
}

int AddFurtherHeading(Objects& objects) {
    const auto isFirstPage = [](const ReportContext& context) { return context.page == 1; };
    const auto add = [&](ReportObject object) {
        objects.push_back(Suppressed(std::move(object), isFirstPage));
    };
    add(Caption({Half::Left, 0}, "Party"));
    add(Bold(ColumnValue({Half::Left, 0}, "PartyName")));
    add(Caption({Half::Right, 0}, "Arrival No."));
    add(Bold(ColumnValue({Half::Right, 0}, "ArrivalId")));
    add(Caption({Half::Left, rowHeight}, "Vehicle No."));
    add(Vehicle({Half::Left, rowHeight}));
    add(Caption({Half::Right, rowHeight}, "Date"));
    add(DateValue({Half::Right, rowHeight}, "ArrivalDate"));
    return 2 * rowHeight + 80;
}

} // namespace Quillane::SlipParts
