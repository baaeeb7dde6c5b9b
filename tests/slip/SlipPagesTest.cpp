// The page breaks of a slip, and the headings and footers of its pages.

#include "slip/SlipPages.h"

namespace Quillane::Testing {
namespace {

class SlipPages : public SlipPagesTest {
protected:
    void AddLoad(int lines) {
        database_.AddArrival(1, "6001");
        database_.AddLine(1, {.tare = 4320, .vehicle = "LEB-4217"});
        database_.AddLines(1, lines - 1);
    }
    void RemoveLoad() {
        database_.Run("Delete From ArrivalsBody Where ArrivalId = 1");
        database_.Run("Delete From Arrivals Where ArrivalID = 1");
    }
    /// Lower edge of the table on the page.
    static double TableEnd(const ReportPage& page) {
        double end = 0;
        for (const PlacedObject& placed : page.objects) {
            if (placed.object->HasBorder)
                end = std::max(end, placed.bounds.bottom());
        }
        return end;
    }
    static bool HasText(const ReportPage& page, const char* text) {
        return ObjectOfText(page, text) != nullptr;
    }
};

TEST_F(SlipPages, AfterTheFirstShowPartyVehicleDateAndArrival) {
    AddLoad(60);
    const auto pages = Pages(1);
    ASSERT_EQ(pages.size(), 2U);
    ASSERT_TRUE(HasText(pages[1], "Party"));
    for (const ReportPage& page : pages) {
        EXPECT_EQ(ValueOf(page, "Party"), "Chaudhry Grain Traders-Faisalabad");
        EXPECT_EQ(ValueOf(page, "Vehicle No."), "LEB-4217");
        EXPECT_EQ(ValueOf(page, "Date"), "20/11/2026");
        EXPECT_EQ(ValueOf(page, "Arrival No."), "1");
        EXPECT_EQ(TextsOf(page).count("Party"), 1);
    }
    EXPECT_LT(ObjectOfText(pages[1], "Party")->bounds.top(),
              ObjectOfText(pages[1], "Bag class")->bounds.top());
}

/// The heading of the following pages has no height on the first page.
TEST_F(SlipPages, HaveNoGapAboveTheFirstTable) {
    const auto page = Pages(1042).at(0);
    double above = 0;
    const double table = ObjectOfText(page, "Bag class")->bounds.top();
    for (const PlacedObject& placed : page.objects) {
        if (placed.bounds.bottom() <= table)
            above = std::max(above, placed.bounds.bottom());
    }
    EXPECT_LT(table - above, 300);
}

TEST_F(SlipPages, HaveNoLargeGapBeforeTheLastRows) {
    for (int lines = 22; lines <= 36; ++lines) {
        AddLoad(lines);
        const auto pages = Pages(1);
        for (std::size_t page = 0; page + 1 < pages.size(); ++page) {
            const double foot = ObjectOfText(pages[page], "Arrival No. 1")->bounds.top();
            EXPECT_LT(foot - TableEnd(pages[page]), 6 * 300) << lines << " lines";
        }
        RemoveLoad();
    }
}

TEST_F(SlipPages, ShowTheVehicleOfTheScreenIfRowsDiffer) {
    database_.AddArrival(1, "6001");
    const std::pair<const char*, const char*> rows[] = {
        {"LEA-1", "LEA-1"}, {"", "LEA-1"}, {"LEB-4217", "LEB-4217"}, {"  ", "  "}};
    for (const auto& [vehicle, shown] : rows) {
        database_.AddLine(1, {.tare = 1, .vehicle = vehicle});
        EXPECT_EQ(ValueOf(Pages(1).at(0), "Vehicle No."), shown);
    }
}

TEST_F(SlipPages, ShowNoPhoneOrEmailCaptionWithoutAValue) {
    SlipContent content = SampleContent(database_.RowsOf(1042));
    content.companyPhone.clear();
    content.companyEmail = " ";
    FillSlip(slip_, content);
    const auto page = LayOutReport(slip_).at(0);
    EXPECT_EQ(TextsOf(page).filter("PhoneNo").size(), 0);
    EXPECT_EQ(TextsOf(page).filter("Email").size(), 0);
}

TEST_F(SlipPages, MoveUpIfALineOfTheCompanyIsMissing) {
    const double usual = ObjectOfText(Pages(1042).at(0), "Quillane Slip")->bounds.top();
    slip_.ParameterFields(3).AddCurrentValue("PhoneNo: ");
    const auto page = LayOutReport(slip_).at(0);
    EXPECT_LT(ObjectOfText(page, "Quillane Slip")->bounds.top(), usual);
    EXPECT_TRUE(HasText(page, "Email: gate@quillane.example"));
}

TEST_F(SlipPages, EndWithTheTimeOfPrintingAndTheUser) {
    AddLoad(60);
    slip_.Now = [] { return QDateTime(QDate(2026, 11, 22), QTime(9, 5, 59)); };
    const auto pages = Pages(1);
    for (const ReportPage& page : pages) {
        EXPECT_TRUE(HasText(page, "Printed 22/11/2026 09:05 by ali"));
        EXPECT_TRUE(HasText(page, "Arrival No. 1"));
    }
    slip_.UserName.clear();
    EXPECT_TRUE(HasText(LayOutReport(slip_).at(0), "Printed 22/11/2026 09:05"));
}

TEST(SlipDesign, ConsistsOnlyOfFieldsTextsAndBoxes) {
    const CrpCottonWeighment slip;
    for (const ReportSection& section : slip.Sections) {
        for (const ReportObject& object : section.Objects)
            EXPECT_NE(object.kind, ReportObjectKind::Line) << section.Name;
    }
}

} // namespace
} // namespace Quillane::Testing
