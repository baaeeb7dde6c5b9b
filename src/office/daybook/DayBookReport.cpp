#include "office/daybook/DayBookReport.h"

#include "office/daybook/Picture.h"
#include "office/daybook/ReportTables.h"
#include "platform/forms/core/Text.h"
#include "slip/SlipObjects.h"

namespace Quillane::Office {

namespace {

using namespace SlipObjects;

constexpr int half = PictureWidth / 2;

std::string PrintedText(const ReportContext& context) {
    const std::string by = context.report.UserName;
    return "Printed " + FromQt(context.time.toString("dd/MM/yyyy HH:mm")) +
           (by.empty() ? "" : " by " + by);
}

ReportSection PageHeader(const DayBook& book, const std::string& company) {
    constexpr int titleTop = 0;
    constexpr int secondTop = 420;
    constexpr int captionsTop = 800;
    const std::string narrowed = NarrowedText(book);
    std::vector<ReportObject> objects = ContinuedCaptions(captionsTop);
    const auto add = [&](ReportObject object) { objects.push_back(std::move(object)); };
    add(Bold(Sized(Text({0, titleTop, half, 400}, company), 14)));
    add(Coloured(
        Bold(Sized(Aligned(Text({half, titleTop, half, 400}, "Day book"), ReportAlignment::Right),
                   14)),
        DarkGreen));
    add(Sized(Text({0, secondTop, half, 280}, narrowed), 9));
    add(Bold(Sized(Aligned(Text({half, secondTop, half, 280}, PeriodText(book.Filter())),
                           ReportAlignment::Right),
                   10)));
    add(Line({0, secondTop + 310, PictureWidth, 0}));
    return {.Name = "PageHeader",
            .Height = captionsTop + CaptionHeight,
            .Objects = std::move(objects),
            .Kind = ReportSectionKind::PageHeader};
}

ReportSection PageFooter() {
    constexpr int height = 380;
    ReportObject pages = At(ReportObjectKind::Field, {half, 120, half, 260});
    pages.field.source = ReportField::Source::PageNofM;
    return {.Name = "PageFooter",
            .Height = height,
            .Objects = {Coloured(Sized(Formula({0, 120, half, 260}, "Printed", PrintedText), 8),
                                 CaptionGrey),
                        Coloured(Sized(Aligned(std::move(pages), ReportAlignment::Right), 8),
                                 CaptionGrey)},
            .Kind = ReportSectionKind::PageFooter};
}

void AddArrivals(ReportRows& rows, const DayBook& book) {
    const bool isTooLong = book.Count() > DayBookReport::MostArrivals;
    rows.BeginTable(PrintedTable::Arrivals,
                    isTooLong ? "Arrivals: too many to be printed. Their list can be exported."
                              : TitleOfArrivals());
    if (!isTooLong)
        for (int page = 0; page * DayBook::PageRows < book.Count(); ++page)
            for (const Arrival& arrival : book.Page(page))
                rows.AddRow(CellsOf(arrival, book.Names()));
    rows.AddRow(CellsBelowArrivals(book.Sums().All()), true);
}

void AddSums(ReportRows& rows, const DayBook& book, SumsBy by, PrintedTable table) {
    rows.BeginTable(table, TitleOf(by));
    for (const NamedSum& sum : book.Sums().By(by, book.Names()))
        rows.AddRow(CellsOf(sum, by));
    rows.AddRow(CellsBelowSums(book.Sums().All(), by), true);
}

ResultSet RowsOf(const DayBook& book, const PrintedParts& parts) {
    ReportRows rows;
    if (parts.arrivals)
        AddArrivals(rows, book);
    if (parts.byDay)
        AddSums(rows, book, SumsBy::Day, PrintedTable::ByDay);
    if (parts.byParty)
        AddSums(rows, book, SumsBy::Party, PrintedTable::ByParty);
    if (parts.byCommodity)
        AddSums(rows, book, SumsBy::Commodity, PrintedTable::ByCommodity);
    if (parts.picture)
        rows.AddEmptyRow();
    return rows.Take();
}

void Append(std::string& text, const std::string& more) {
    text += (text.empty() ? "" : ", ") + more;
}

} // namespace

DayBookReport::DayBookReport(const DayBook& book, const PrintedParts& parts,
                             const std::string& company)
    : Report(0) {
    constexpr int onItsSide = 2;
    constexpr int recordset = 3;
    Title = "Day book";
    PaperOrientation = onItsSide;
    fileName_ = FileNameOf(book.Filter());
    Sections.push_back(PageHeader(book, company));
    for (int table = 0; table < PrintedTableCount; ++table)
        Sections.push_back(TableSection(static_cast<PrintedTable>(table)));
    if (parts.picture)
        Sections.push_back({.Name = "Picture",
                            .Height = PictureHeight,
                            .Objects = Picture(book.Sums(), book.Names(), 0),
                            .Kind = ReportSectionKind::ReportFooter});
    Sections.push_back(PageFooter());
    Database.SetDataSource(std::make_shared<Recordset>(Recordset::Of(RowsOf(book, parts))),
                           recordset, 1);
}

std::string DayBookReport::FileName() const {
    return fileName_;
}

std::string FileNameOf(const ArrivalFilter& filter) {
    constexpr std::size_t dayLength = std::string_view("2026-11-20").size();
    const auto day = [](Date date) { return DateLiteral(date).substr(0, dayLength); };
    return "Day book " + day(filter.from) +
           (filter.to == filter.from ? std::string() : " to " + day(filter.to));
}

std::string PeriodText(const ArrivalFilter& filter) {
    return filter.from == filter.to ? ShownDate(filter.from)
                                    : ShownDate(filter.from) + " to " + ShownDate(filter.to);
}

std::string NarrowedText(const DayBook& book) {
    const ArrivalFilter& filter = book.Filter();
    std::string text;
    if (!filter.party.empty())
        Append(text, book.Names().Party(filter.party));
    if (!filter.commodity.empty())
        Append(text, book.Names().Commodity(filter.commodity));
    if (!filter.vehicle.empty())
        Append(text, "vehicle " + filter.vehicle);
    if (filter.onlyInside)
        Append(text, "trucks still inside");
    return text;
}

} // namespace Quillane::Office
