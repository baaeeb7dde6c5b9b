#include "office/daybook/DayBookReport.h"

#include "office/daybook/DayBookDatabase.h"
#include "office/daybook/Export.h"
#include "office/daybook/Picture.h"
#include "platform/report/ReportLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace Quillane::Office {
namespace {

/// All texts of a page and the widths of its bars.
std::multiset<std::string> TextsOf(const ReportPage& page) {
    std::multiset<std::string> texts;
    for (const PlacedObject& placed : page.objects)
        if (placed.text)
            texts.insert(placed.text->Text().toStdString());
    return texts;
}

class DayBookReports : public testing::Test {
protected:
    DayBookReports() {
        database.AddLoad(20001, "2024-05-01", 8100.5, 4000, 8100);
        database.AddLoad(20002, "2024-05-01", 12000, 0, 12000);
        database.AddLoad(20003, "2024-05-02", 4000, 4000, 4000);
    }
    std::vector<ReportPage> Pages(const PrintedParts& parts) {
        const DayBook book = database.ReadAll(Year2024());
        DayBookReport report(book, parts, "Veltrane Flour Mills");
        KeepPdf(report);
        return LayOutReport(report);
    }
    /// Writes a PDF for visual inspection if the environment names a folder.
    static void KeepPdf(const Report& report) {
        const QString folder = qEnvironmentVariable("QUILLANE_TEST_PICTURES");
        if (folder.isEmpty())
            return;
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        WritePdf(report, folder.toStdString() + "/" + name + ".pdf");
    }

    DayBookDatabase database;
};

constexpr PrintedParts arrivalsAlone{
    .byDay = false, .byParty = false, .byCommodity = false, .picture = false};

TEST_F(DayBookReports, TableOfArrivalsHasUnitsRowsAndItsSum) {
    const std::vector<ReportPage> pages = Pages(arrivalsAlone);
    ASSERT_EQ(pages.size(), 1U);
    const std::multiset<std::string> texts = TextsOf(pages[0]);
    for (const char* text :
         {"Veltrane Flour Mills", "Day book", "01/01/2024 to 31/12/2024", "Arrivals", "Tare (kg)",
          "Net (kg)", "Mounds - kg", "20001", "12,100.50", "still inside", "8,100", "202-20", "Sum",
          "12,100", "302-20", "without 1 still inside", "Page 1 of 1"})
        EXPECT_GE(texts.count(text), 1U) << text;
    EXPECT_EQ(texts.count("By day"), 0U);
}

TEST_F(DayBookReports, EachTableHasItsOwnCaptionsAndRows) {
    const std::vector<ReportPage> pages = Pages({});
    ASSERT_EQ(pages.size(), 2U); // the picture is on the second page
    const std::multiset<std::string> texts = TextsOf(pages[0]);
    for (const char* title : {"Arrivals", "By day", "By party", "By commodity"})
        EXPECT_GE(texts.count(title), 1U) << title;
    EXPECT_EQ(texts.count("Sum"), 4U);
    EXPECT_EQ(texts.count("Still inside"), 3U);
    EXPECT_EQ(texts.count("01/05/2024"), 3U); // two arrivals and the sum of their day
}

TEST_F(DayBookReports, CaptionsAreRepeatedOnEachPageOfATable) {
    database.Together([&] {
        for (int id = 0; id < 100; ++id)
            database.AddLoad(21000 + id, "2024-06-01", 8000, 4000, 8000);
    });
    const std::vector<ReportPage> pages = Pages(arrivalsAlone);
    ASSERT_GE(pages.size(), 3U);
    for (const ReportPage& page : pages)
        EXPECT_EQ(TextsOf(page).count("Tare (kg)"), 1U);
}

TEST_F(DayBookReports, TooManyArrivalsAreReplacedByALine) {
    database.Together([&] {
        for (int id = 0; id <= DayBookReport::MostArrivals; ++id)
            database.AddArrival(21000 + id, "2024-06-01", "6010001", 1, {});
    });
    const std::vector<ReportPage> pages = Pages(arrivalsAlone);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(
        TextsOf(pages[0]).count("Arrivals: too many to be printed. Their list can be exported."),
        1U);
}

TEST_F(DayBookReports, EmptyDayBookHasItsSumsAndAnEmptyPicture) {
    const DayBook book = database.ReadAll({.from = DayOf(2020, 1, 1), .to = DayOf(2020, 1, 1)});
    const DayBookReport report(book, {}, "Veltrane");
    const std::vector<ReportPage> pages = LayOutReport(report);
    ASSERT_FALSE(pages.empty());
    EXPECT_EQ(TextsOf(pages[0]).count("Sum"), 4U);
    EXPECT_EQ(report.FileName(), "Day book 2020-01-01");
}

TEST(DayBookPicture, BarLengthsAreProportionalToNetWeights) {
    DayBookSums sums;
    for (const auto& [day, commodity, net] :
         std::initializer_list<std::tuple<unsigned, const char*, std::int64_t>>{
             {1, "Wheat", 300'000}, {2, "Wheat", 150'000}, {2, "Maize", 50'000}})
        sums.Add(
            {.id = 1, .day = DayOf(2024, 5, day), .commodity = commodity, .figures = {.net = net}});
    std::vector<int> heights;
    std::vector<int> widths;
    for (const ReportObject& object : Picture(sums, DayBookNames(), 0))
        if (object.kind == ReportObjectKind::Box)
            (object.Top < 4'500 ? heights : widths)
                .push_back(object.Top < 4'500 ? object.Height : object.Width);
    ASSERT_EQ(heights.size(), 2U);
    EXPECT_NEAR(heights[1] * 3.0, heights[0] * 2.0, 3);
    ASSERT_EQ(widths.size(), 2U);
    EXPECT_NEAR(widths[0], widths[1] * 9.0, 9);
}

TEST(DayBookPicture, MoreThanAYearIsShownByMonthAndRareCommoditiesAsOthers) {
    DayBookSums sums;
    for (int day = 0; day < 800; ++day)
        sums.Add({.id = 1,
                  .day = AddDays(DayOf(2024, 1, 1), day),
                  .commodity = "C" + std::to_string(day % 20),
                  .figures = {.net = 100'000}});
    int months = 0;
    int commodities = 0;
    bool hasOthers = false;
    for (const ReportObject& object : Picture(sums, DayBookNames(), 0)) {
        if (object.kind == ReportObjectKind::Box)
            ++(object.Top < 4'500 ? months : commodities);
        hasOthers = hasOthers || object.text == "Others";
        EXPECT_LE(object.Left + object.Width, PictureWidth + 1'000);
        EXPECT_LE(object.Top + object.Height, PictureHeight);
    }
    EXPECT_EQ(months, 27);
    EXPECT_EQ(commodities, 8);
    EXPECT_TRUE(hasOthers);
}

} // namespace
} // namespace Quillane::Office
