// The weights of a slip.

#include "slip/SlipPages.h"

namespace Quillane::Testing {
namespace {

class SlipWeights : public SlipPagesTest {
protected:
    /// Arrival 1 with one line of 100 bags.
    void AddLoad(double gross, const LineRow& line) {
        LineRow stored = line;
        stored.bags = 100;
        stored.bagWeight = gross / 100;
        database_.AddArrival(1, "6001");
        database_.AddLine(1, stored);
    }
    static double Figure(const ReportPage& page, const char* caption) {
        return QString::fromStdString(ValueOf(page, caption)).toDouble();
    }
    static int SizeOf(const ReportPage& page, const char* text) {
        const PlacedObject* placed = ObjectOfText(page, text);
        return placed ? placed->object->Font.points : 0;
    }
};

const char* const tareToFollow = "FIRST WEIGHING - TARE TO FOLLOW";
const char* const grossToFollow = "FIRST WEIGHING - GROSS TO FOLLOW";

TEST_F(SlipWeights, AddUpOnAReprintWithAGrossRoundedPerLine) {
    AddLoad(8220, {.tare = 4320, .otherDeduction = 40});
    const auto page = Pages(1, 12537, 8181).at(0);
    EXPECT_EQ(RightOf(page, "Initial Gross Weight"), (QStringList{"12537", "kg"}));
    EXPECT_EQ(RightOf(page, "Tare Weight"), (QStringList{"4320", "kg"}));
    EXPECT_EQ(RightOf(page, "Gross Weight"), (QStringList{"8217", "kg"}));
    EXPECT_EQ(RightOf(page, "Deduction"), (QStringList{"36", "kg"}));
    EXPECT_EQ(RightOf(page, "Net Weight"), (QStringList{"8181", "kg"}));
    // The table has the figures of its rows.
    EXPECT_TRUE(TextsOf(page).contains("8220.00"));
    EXPECT_TRUE(TextsOf(page).contains("40.00"));
}

TEST_F(SlipWeights, AddUpForAnyFiguresAsPrinted) {
    struct Case {
        double initialGross, tare, net;
    };
    for (const Case& each : std::initializer_list<Case>{{12540, 4320, 8203},
                                                        {12540, 4320.005, 8203},
                                                        {12540.5, 4320.125, 8203},
                                                        {12540, 4320.333333333, 8203.335},
                                                        {4000, 4320, -340},
                                                        {0.1, 0.3, 0.7}}) {
        database_.Run("Delete From ArrivalsBody Where ArrivalId = 1");
        database_.Run("Delete From Arrivals Where ArrivalID = 1");
        AddLoad(8220, {.tare = each.tare});
        const auto page = Pages(1, each.initialGross, each.net).at(0);
        const double gross = Figure(page, "Gross Weight");
        EXPECT_NEAR(Figure(page, "Initial Gross Weight") - Figure(page, "Tare Weight"), gross, 1e-9)
            << each.tare;
        EXPECT_NEAR(gross - Figure(page, "Deduction"), Figure(page, "Net Weight"), 1e-9)
            << each.tare;
    }
}

/// A typed gross weight has neither of the two weighings.
TEST_F(SlipWeights, UseTheGrossOfTheRowsWithoutAnInitialGross) {
    AddLoad(8117, {.otherDeduction = 17});
    const auto page = Pages(1, 0, 8100).at(0);
    EXPECT_EQ(RightOf(page, "Initial Gross Weight"), QStringList{});
    EXPECT_EQ(RightOf(page, "Tare Weight"), QStringList{});
    EXPECT_EQ(ValueOf(page, "Gross Weight"), "8117");
    EXPECT_EQ(ValueOf(page, "Deduction"), "17");
    EXPECT_FALSE(TextsOf(page).contains(tareToFollow));
    EXPECT_FALSE(TextsOf(page).contains(grossToFollow));
}

TEST_F(SlipWeights, WithoutRowsShowNoUnits) {
    const auto page = Pages(5).at(0);
    EXPECT_EQ(RightOf(page, "Initial Gross Weight"), (QStringList{"12437", "kg"}));
    EXPECT_EQ(RightOf(page, "Net Weight"), (QStringList{"8100", "kg"}));
    EXPECT_EQ(TextsOf(page).count("kg"), 2);
    EXPECT_EQ(TextsOf(page).filter("FIRST WEIGHING").size(), 0);
}

// ---- A truck that has been weighed once ----

TEST_F(SlipWeights, WithoutATareStateItInLargeLetters) {
    AddLoad(12540, {});
    const auto page = Pages(1, 12540, 12540).at(0);
    EXPECT_GE(SizeOf(page, tareToFollow), 20);
    ASSERT_EQ(RightOf(page, "Net Weight"), (QStringList{"12540", "kg"}));
    EXPECT_LE(ObjectOfText(page, "Net Weight")->object->Font.points, 10);
    for (const PlacedObject& placed : page.objects) {
        if (placed.text && placed.text->Text() == "12540") {
            EXPECT_LE(placed.object->Font.points, 11);
            EXPECT_FALSE(placed.object->Font.bold);
        }
    }
    EXPECT_LE(SizeOf(page, "202-20"), 10);
}

TEST_F(SlipWeights, WithoutAGrossStateThatItFollows) {
    AddLoad(0, {.tare = 4320});
    for (const double initialGross : {0.0, 4320.0}) {
        const auto page = Pages(1, initialGross, 0).at(0);
        EXPECT_GE(SizeOf(page, grossToFollow), 20);
        EXPECT_EQ(RightOf(page, "Tare Weight"), (QStringList{"4320", "kg"}));
        EXPECT_EQ(ValueOf(page, "Gross Weight"), "0");
        EXPECT_LE(ObjectOfText(page, "Net Weight")->object->Font.points, 10);
    }
}

TEST_F(SlipWeights, WithBothWeighingsShowTheNetInLargeLetters) {
    const auto page = Pages(1042).at(0);
    EXPECT_EQ(TextsOf(page).filter("FIRST WEIGHING").size(), 0);
    EXPECT_GE(SizeOf(page, "8100"), 18);
    EXPECT_EQ(TextsOf(page).count("8100"), 1);
    EXPECT_EQ(TextsOf(page).count("202-20"), 1);
}

// ---- The scale deduction ----

TEST_F(SlipWeights, ShowAScaleDeductionThatIsIncluded) {
    AddLoad(8117, {.tare = 4320, .scaleDeduction = 103, .otherDeduction = 17});
    const auto page = Pages(1, 12540, 8100).at(0);
    EXPECT_EQ(ValueOf(page, "Deduction"), "120");
    EXPECT_TRUE(TextsOf(page).contains("The deduction includes a scale deduction of 103 kg. The "
                                       "lines below are after it."));
}

TEST_F(SlipWeights, ShowNoScaleDeductionForAnOpenedArrival) {
    AddLoad(8117, {.tare = 4320, .scaleDeduction = 103, .otherDeduction = 17});
    const auto page = Pages(1, 12437, 8100).at(0);
    EXPECT_EQ(ValueOf(page, "Deduction"), "17");
    EXPECT_EQ(TextsOf(page).filter("scale deduction").size(), 0);
}

TEST_F(SlipWeights, ShowNoScaleDeductionIfThereIsNone) {
    EXPECT_EQ(TextsOf(Pages(1042).at(0)).filter("scale deduction").size(), 0);
}

} // namespace
} // namespace Quillane::Testing
