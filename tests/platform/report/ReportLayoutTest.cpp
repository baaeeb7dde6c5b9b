#include "platform/report/ReportLayout.h"

#include "platform/report/ReportSamples.h"
#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

QStringList RowsFrom(int first, int last) {
    QStringList rows;
    for (int number = first; number <= last; ++number)
        rows.append(QStringLiteral("row %1").arg(number));
    return rows;
}

QStringList PageTexts(const QStringList& head, const QStringList& body, int page, int count) {
    return head + body + QStringList{QStringLiteral("Page %1 of %2").arg(page).arg(count)};
}

const QStringList firstHead{"report header", "page header"};
const QStringList furtherHead{"page header"};
const QStringList footer{"report footer"};

TEST(ReportLayout, FillsOnePage) {
    RowSource source;
    const ListReport report(source.Numbers(9));
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(TextsOf(pages[0]), PageTexts(firstHead, RowsFrom(1, 9) + footer, 1, 1));
}

TEST(ReportLayout, MovesTheLastRowToThePageOfTheReportFooter) {
    RowSource source;
    const ListReport report(source.Numbers(10));
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(TextsOf(pages[0]), PageTexts(firstHead, RowsFrom(1, 9), 1, 2));
    EXPECT_EQ(TextsOf(pages[1]), PageTexts(furtherHead, RowsFrom(10, 10) + footer, 2, 2));
}

TEST(ReportLayout, RepeatsPageHeaderAndFooterOnEveryPage) {
    RowSource source;
    const ListReport report(source.Numbers(25));
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(TextsOf(pages[0]), PageTexts(firstHead, RowsFrom(1, 10), 1, 3));
    EXPECT_EQ(TextsOf(pages[1]), PageTexts(furtherHead, RowsFrom(11, 21), 2, 3));
    EXPECT_EQ(TextsOf(pages[2]), PageTexts(furtherHead, RowsFrom(22, 25) + footer, 3, 3));
}

TEST(ReportLayout, KeepsEverythingBetweenTheMargins) {
    RowSource source;
    const ListReport report(source.Numbers(57));
    for (const ReportPage& page : LayOutReport(report)) {
        for (const PlacedObject& placed : page.objects) {
            EXPECT_GE(placed.bounds.top(), report.Paper.TopMargin);
            EXPECT_LE(placed.bounds.bottom(), report.Paper.Height - report.Paper.BottomMargin);
            EXPECT_EQ(placed.bounds.left(), report.Paper.LeftMargin);
        }
    }
}

TEST(ReportLayout, PutsAReportFooterHigherThanAPageOnASeparatePage) {
    RowSource source;
    ListReport report(source.Numbers(3));
    report.Section(ReportSectionKind::ReportFooter).Height = 20000;
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(TextsOf(pages[0]), PageTexts(firstHead, RowsFrom(1, 3), 1, 2));
    EXPECT_EQ(TextsOf(pages[1]), PageTexts(furtherHead, footer, 2, 2));
}

TEST(ReportLayout, PutsEachRowHigherThanAPageOnASeparatePage) {
    RowSource source;
    ListReport report(source.Numbers(3));
    report.Section(ReportSectionKind::Detail).Height = 20000;
    EXPECT_EQ(LayOutReport(report).size(), 5U);
}

TEST(ReportLayout, WithoutRowsHasHeadersAndFooters) {
    RowSource source;
    const ListReport report(source.Numbers(0));
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(TextsOf(pages[0]), PageTexts(firstHead, footer, 1, 1));
}

TEST(ReportLayout, WithoutDataHasHeadersAndFooters) {
    EXPECT_EQ(TextsOf(LayOutReport(ListReport(nullptr)).at(0)), PageTexts(firstHead, footer, 1, 1));
    EXPECT_EQ(TextsOf(LayOutReport(ListReport(std::make_shared<Recordset>())).at(0)),
              PageTexts(firstHead, footer, 1, 1));
}

TEST(ReportLayout, WithoutSectionsIsOneEmptyPage) {
    const auto pages = LayOutReport(Report(0));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_TRUE(pages[0].objects.empty());
}

TEST(ReportLayout, DoesNotChangeTheCurrentRowOfItsRecordset) {
    RowSource source;
    const auto rows = source.Numbers(5);
    rows->SetPosition(3);
    int moves = 0;
    rows->Moved = [&] { ++moves; };
    const ListReport report(rows);
    EXPECT_EQ(TextsOf(LayOutReport(report).at(0)).size(), 9);
    EXPECT_EQ(rows->Position(), 3);
    EXPECT_EQ(moves, 0);
}

TEST(ReportLayout, ShowsThePagesFirstRowInItsHeaderAndTheLastRowInTheReportFooter) {
    RowSource source;
    ListReport report(source.Numbers(12));
    const ReportObject row = report.Section(ReportSectionKind::Detail).Objects[0];
    report.Section(ReportSectionKind::PageHeader).Objects = {row};
    report.Section(ReportSectionKind::ReportFooter).Objects = {row};
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(TextsOf(pages[0])[1], "row 1");
    EXPECT_EQ(TextsOf(pages[1]),
              QStringList({"row 11", "row 11", "row 12", "row 12", "Page 2 of 2"}));
}

TEST(ReportLayout, ShowsTheLastRowOnAPageWithOnlyTheReportFooter) {
    RowSource source;
    ListReport report(source.Numbers(3));
    report.Section(ReportSectionKind::PageHeader).Objects =
        report.Section(ReportSectionKind::Detail).Objects;
    report.Section(ReportSectionKind::ReportFooter).Height = 20000;
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(TextsOf(pages[1]), QStringList({"row 3", "report footer", "Page 2 of 2"}));
}

TEST(ReportLayout, PassesThePageAndOneTimeToAllFormulas) {
    RowSource source;
    ListReport report(source.Numbers(12));
    int minute = 0;
    report.Now = [&] { return QDateTime(QDate(2026, 11, 22), QTime(9, minute++)); };
    const auto describe = [](const ReportContext& at) {
        return std::to_string(at.page) + " at " + at.time.toString("HH:mm").toStdString();
    };
    for (ReportSection& section : report.Sections) {
        section.Objects = {FieldObject(ReportField::Source::Formula)};
        section.Objects[0].field.formula = describe;
    }
    const auto pages = LayOutReport(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(TextsOf(pages[0]), QStringList({"0 at 09:00", "1 at 09:00"}) +
                                     QStringList(10, "0 at 09:00") + QStringList("1 at 09:00"));
    EXPECT_EQ(TextsOf(pages[1]),
              QStringList({"2 at 09:00", "0 at 09:00", "0 at 09:00", "0 at 09:00", "2 at 09:00"}));
    EXPECT_EQ(TextsOf(LayOutReport(report).at(0)).first(), "0 at 09:01");
}

TEST(ReportLayout, CachesResultsOfFormulasForOneLayout) {
    RowSource source;
    ListReport report(source.Numbers(25));
    int computed = 0;
    report.Section(ReportSectionKind::Detail).Objects[0].field.formula =
        [&](const ReportContext& at) {
            if (!at.kept.has_value())
                at.kept = std::to_string(++computed);
            return std::any_cast<std::string>(at.kept);
        };
    EXPECT_EQ(TextsOf(LayOutReport(report).at(2)).count("1"), 4);
    EXPECT_EQ(TextsOf(LayOutReport(report).at(2)).count("2"), 4);
}

TEST(ReportLayout, PropagatesAFailureOfAFormula) {
    RowSource source;
    ListReport report(source.Numbers(1));
    report.Section(ReportSectionKind::Detail).Objects[0].field.formula =
        [](const ReportContext& at) { return at.rows->Fields("missing").Text(); };
    EXPECT_THROW(LayOutReport(report), Failure);
}

TEST(ReportLayout, TurnsTheSheetByItsOrientation) {
    Report report(0);
    for (const int upright : {0, 1}) {
        report.PaperOrientation = upright;
        EXPECT_EQ(SheetOf(report), QSizeF(11906, 16838));
    }
    report.PaperOrientation = 2;
    EXPECT_EQ(SheetOf(report), QSizeF(16838, 11906));
}

} // namespace
} // namespace Quillane
