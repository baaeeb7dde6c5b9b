#include "slip/SlipFigures.h"
#include "slip/SlipParts.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Centre = ReportAlignment::Centre;

void AddCompany(std::vector<ReportObject>& objects) {
    const auto parameter = [](int top, int height, int position, int points) {
        return Aligned(Growing(Sized(Parameter({0, top, PageWidth, height}, position), points)),
                       Centre);
    };
    objects.push_back(
        Coloured(Bold(parameter(0, 520, SlipParameter::CompanyTitle, 22)), DarkGreen));
    objects.push_back(parameter(540, 260, SlipParameter::CompanyAddress, 10));
    objects.push_back(parameter(800, 230, SlipParameter::CompanyPhone, 9));
    objects.push_back(parameter(1030, 230, SlipParameter::CompanyEmail, 9));
}

void AddTitle(std::vector<ReportObject>& objects) {
    constexpr Place place{0, 1380, PageWidth, 420};
    objects.push_back(Box(place, BandGreen));
    ReportObject title = At(ReportObjectKind::Field, place);
    title.field.source = ReportField::Source::ReportTitle;
    objects.push_back(Coloured(Aligned(Bold(Sized(title, 14)), Centre), DarkGreen));
}

// ---- Party, vehicle, commodity: captions and values in two halves
// --------------------------------

constexpr int particularsTop = 1920;
constexpr int rowHeight = 330;
constexpr int rowCount = 5;
constexpr int middle = 6250;

enum class Half { Left, Right };

Place CaptionPlace(Half half, int row) {
    return {half == Half::Left ? 120 : middle + 130, particularsTop + 60 + row * rowHeight, 1200,
            rowHeight};
}

Place ValuePlace(Half half, int row) {
    Place place = CaptionPlace(half, row);
    place.left += half == Half::Left ? 1100 : 1240;
    place.width = half == Half::Left ? 4900 : 2746;
    return place;
}

ReportObject Caption(Half half, int row, const char* caption) {
    return Coloured(Text(CaptionPlace(half, row), caption), CaptionGrey);
}

ReportObject ColumnValue(Half half, int row, const char* column) {
    return Growing(Sized(Column(ValuePlace(half, row), column), 10));
}

/// Of a column that is not on every row.
ReportObject FirstValue(Half half, int row, const char* column) {
    return Growing(
        Sized(Formula(ValuePlace(half, row), column,
                      [column](const Recordset& rows) { return FirstTextOf(rows, column); }),
              10));
}

void AddParty(std::vector<ReportObject>& objects) {
    objects.push_back(Caption(Half::Left, 0, "Party"));
    objects.push_back(Bold(Sized(ColumnValue(Half::Left, 0, "PartyName"), 11)));
    objects.push_back(Caption(Half::Left, 1, "Address"));
    objects.push_back(ColumnValue(Half::Left, 1, "Address"));
    objects.push_back(Caption(Half::Left, 2, "City"));
    objects.push_back(ColumnValue(Half::Left, 2, "CityName"));
    objects.push_back(Caption(Half::Left, 3, "Commodity"));
    objects.push_back(Bold(ColumnValue(Half::Left, 3, "CommodityName")));
    objects.push_back(Caption(Half::Left, 4, "Driver"));
    objects.push_back(FirstValue(Half::Left, 4, "DriverName"));
}

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

std::string ReferenceCaptionOf(const Recordset& rows) {
    return ReferenceOf(rows).empty() ? "" : "Reference";
}

void AddArrival(std::vector<ReportObject>& objects) {
    objects.push_back(Caption(Half::Right, 0, "Arrival No."));
    objects.push_back(Bold(Sized(Column(ValuePlace(Half::Right, 0), "ArrivalId"), 12)));
    objects.push_back(Caption(Half::Right, 1, "Date"));
    objects.push_back(ColumnValue(Half::Right, 1, "ArrivalDate"));
    objects.back().field.format = ReportFormat::DateOnly;
    objects.push_back(Caption(Half::Right, 2, "Vehicle No."));
    objects.push_back(Bold(FirstValue(Half::Right, 2, "VehicleNo")));
    objects.push_back(Caption(Half::Right, 3, "Bilty No."));
    objects.push_back(FirstValue(Half::Right, 3, "BiltyNo"));
    objects.push_back(
        Coloured(Formula(CaptionPlace(Half::Right, 4), "ReferenceCaption", ReferenceCaptionOf),
                 CaptionGrey));
    objects.push_back(
        Growing(Sized(Formula(ValuePlace(Half::Right, 4), "Reference", ReferenceOf), 9)));
}

} // namespace

ReportSection Heading() {
    constexpr int boxHeight = rowCount * rowHeight + 120;
    ReportSection section{"ReportHeaderSection1",
                          particularsTop + boxHeight + 200,
                          {},
                          ReportSectionKind::ReportHeader};
    AddCompany(section.Objects);
    AddTitle(section.Objects);
    section.Objects.push_back(Box({0, particularsTop, PageWidth, boxHeight}, PaleGreen));
    section.Objects.push_back(Line({middle, particularsTop, 0, boxHeight}));
    AddParty(section.Objects);
    AddArrival(section.Objects);
    return section;
}

} // namespace Quillane::SlipParts
