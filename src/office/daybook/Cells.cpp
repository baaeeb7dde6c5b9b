#include "office/daybook/Cells.h"

#include "data/CompanyProfile.h"

#include <cstdlib>

namespace Quillane::Office {

namespace {

constexpr int kilogramsPerMound = 40;

/// Formats a whole number, with thousands separators if wanted.
std::string Digits(std::uint64_t number, bool inGroups) {
    std::string digits = std::to_string(number);
    constexpr std::size_t group = 3;
    if (inGroups)
        for (std::size_t position = digits.size(); position > group;)
            digits.insert(position -= group, ",");
    return digits;
}

std::int64_t UnitOf(int decimals) {
    std::int64_t unit = 1;
    for (int decimal = 0; decimal < decimals; ++decimal)
        unit *= 10;
    return unit;
}

/// Without a decimal point if the number is whole.
std::string NumberText(std::int64_t number, int decimals, bool isShown) {
    const std::int64_t unit = UnitOf(decimals);
    const auto part = [](std::int64_t value) {
        return static_cast<std::uint64_t>(std::abs(value));
    };
    std::string text = (number < 0 ? "-" : "") + Digits(part(number / unit), isShown);
    const std::int64_t rest = number % unit;
    if (rest == 0)
        return text;
    std::string fraction = std::to_string(part(rest) + static_cast<std::uint64_t>(unit)).substr(1);
    // A fractional weight is shown with both decimals.
    const std::size_t least = isShown && decimals == WeightDecimals ? 2 : 1;
    while (fraction.size() > least && fraction.back() == '0')
        fraction.pop_back();
    return text + "." + fraction;
}

/// A hundredth of a kilogram is 0.00025 mounds.
constexpr int moundDecimals = 5;
std::int64_t MoundUnits(std::int64_t hundredths) {
    constexpr std::int64_t unitsInHundredth = 100'000 / (100 * kilogramsPerMound);
    return hundredths * unitsInHundredth;
}

Cell TextCell(std::string text) {
    return {.kind = Cell::Kind::Text, .text = std::move(text)};
}
Cell Count(std::int64_t count) {
    return {.kind = Cell::Kind::Number, .number = count};
}
Cell Bags(const Figures& figures) {
    return {.kind = Cell::Kind::Number, .number = figures.bags, .decimals = BagDecimals};
}
Cell Weight(std::int64_t hundredths) {
    return {.kind = Cell::Kind::Number, .number = hundredths, .decimals = WeightDecimals};
}

/// From the tare on.
void AppendWeighed(std::vector<Cell>& cells, const Figures& figures) {
    for (const std::int64_t weight : {figures.tare, figures.gross, figures.deduction, figures.net})
        cells.push_back(Weight(weight));
    cells.push_back(
        {.kind = Cell::Kind::Mounds, .number = figures.net, .decimals = WeightDecimals});
}

void AppendSum(std::vector<Cell>& cells, const Sum& sum) {
    cells.push_back(Bags(sum.figures));
    cells.push_back(Weight(sum.figures.firstWeight));
    AppendWeighed(cells, sum.figures);
}

std::vector<ColumnHeading> WithFigures(std::vector<ColumnHeading> headings) {
    const std::initializer_list<ColumnHeading> figures = {
        {"Bags", "", "Bags", true, 9},
        {"First weight", "kg", "FirstWeightKg", true, 16},
        {"Tare", "kg", "TareKg", true, 11},
        {"Gross", "kg", "GrossKg", true, 12},
        {"Deduction", "kg", "DeductionKg", true, 15},
        {"Net", "kg", "NetKg", true, 12},
        {"Mounds - kg", "", "Mounds", true, 15}};
    headings.insert(headings.end(), figures);
    return headings;
}

} // namespace

std::string Cell::Shown() const {
    switch (kind) {
    case Kind::Number:
        return NumberText(number, decimals, true);
    case Kind::Id:
        return NumberText(number, decimals, false);
    case Kind::Mounds: {
        constexpr double hundredths = 100;
        return CompanyProfileObject().MoundKgsText(static_cast<double>(number) / hundredths,
                                                   kilogramsPerMound);
    }
    case Kind::Day:
        return ShownDate(ParseDate(text));
    default:
        return text;
    }
}

std::string Cell::Plain() const {
    if (kind == Kind::Number || kind == Kind::Id)
        return NumberText(number, decimals, false);
    if (kind == Kind::Mounds)
        return NumberText(MoundUnits(number), moundDecimals, false);
    return kind == Kind::Note ? std::string() : text;
}

double Cell::AsDouble() const {
    const double scaled = static_cast<double>(number) / static_cast<double>(UnitOf(decimals));
    return kind == Kind::Mounds ? scaled / kilogramsPerMound : scaled;
}

bool Cell::IsWhole() const {
    return number % UnitOf(decimals) == 0;
}

std::string ColumnHeading::WithUnit() const {
    return std::string(caption) + (unit.empty() ? "" : " (" + std::string(unit) + ")");
}

const std::vector<ColumnHeading>& ArrivalHeadings() {
    static const std::vector<ColumnHeading> headings =
        WithFigures({{"ID", "", "ArrivalId", true, 8},
                     {"Date", "", "ArrivalDate", false, 14},
                     {"Party", "", "Party", false, 24},
                     {"Account", "", "PartyId", false, 10},
                     {"Commodity", "", "Commodity", false, 17},
                     {"Vehicle", "", "VehicleNo", false, 11}});
    return headings;
}

std::vector<Cell> CellsOf(const Arrival& arrival, const DayBookNames& names) {
    std::vector<Cell> cells{
        {.kind = Cell::Kind::Id, .number = arrival.id},
        {.kind = Cell::Kind::Day, .text = DateLiteral(arrival.day).substr(0, 10)},
        TextCell(names.Party(arrival.party)),
        TextCell(arrival.party),
        TextCell(names.Commodity(arrival.commodity)),
        TextCell(arrival.vehicle),
        Bags(arrival.figures),
        Weight(arrival.figures.firstWeight)};
    if (!arrival.isInside) {
        AppendWeighed(cells, arrival.figures);
        return cells;
    }
    cells.push_back({.kind = Cell::Kind::Note, .text = "still inside"});
    cells.resize(ArrivalHeadings().size());
    return cells;
}

const std::vector<ColumnHeading>& SumHeadings(SumsBy by) {
    const auto headings = [](std::vector<ColumnHeading> first) {
        first.push_back({"Arrivals", "", "Arrivals", true, 9});
        first.push_back({"Still inside", "", "StillInside", true, 12});
        return WithFigures(std::move(first));
    };
    static const std::vector<ColumnHeading> byDay =
        headings({{"Date", "", "ArrivalDate", false, 14}});
    static const std::vector<ColumnHeading> byParty =
        headings({{"Party", "", "Party", false, 30}, {"Account", "", "PartyId", false, 10}});
    static const std::vector<ColumnHeading> byCommodity =
        headings({{"Commodity", "", "Commodity", false, 24}, {"ID", "", "CommodityId", false, 6}});
    return by == SumsBy::Day ? byDay : by == SumsBy::Party ? byParty : byCommodity;
}

std::vector<Cell> CellsOf(const NamedSum& sum, SumsBy by) {
    std::vector<Cell> cells;
    if (by == SumsBy::Day)
        cells.push_back({.kind = Cell::Kind::Day, .text = sum.id});
    else
        cells = {TextCell(sum.name), TextCell(sum.id)};
    cells.push_back(Count(sum.sum.arrivals));
    cells.push_back(Count(sum.sum.inside));
    AppendSum(cells, sum.sum);
    return cells;
}

std::vector<Cell> CellsBelowArrivals(const Sum& sum) {
    std::vector<Cell> cells{Count(sum.arrivals), TextCell("Sum"), {}, {}, {}, {}};
    if (sum.inside > 0)
        cells[2] = TextCell("without " + std::to_string(sum.inside) + " still inside");
    AppendSum(cells, sum);
    return cells;
}

std::vector<Cell> CellsBelowSums(const Sum& sum, SumsBy by) {
    std::vector<Cell> cells{TextCell("Sum")};
    if (by != SumsBy::Day)
        cells.emplace_back();
    cells.push_back(Count(sum.arrivals));
    cells.push_back(Count(sum.inside));
    AppendSum(cells, sum);
    return cells;
}

std::string_view TitleOfArrivals() {
    return "Arrivals";
}

std::string_view TitleOf(SumsBy by) {
    return by == SumsBy::Day ? "By day" : by == SumsBy::Party ? "By party" : "By commodity";
}

} // namespace Quillane::Office
