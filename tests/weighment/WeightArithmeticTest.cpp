#include "weighment/WeightArithmetic.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

struct GrossCase {
    const char* initialGross;
    const char* tare;
    const char* rate;
    const char* scaleDeduction;
    const char* gross;
};

class GrossTable : public testing::TestWithParam<GrossCase> {};

TEST_P(GrossTable, GivesScaleDeductionAndGross) {
    const GrossCase& given = GetParam();
    const auto figures = GrossFiguresOf(given.initialGross, given.tare, given.rate);
    ASSERT_TRUE(figures);
    EXPECT_EQ(figures->scaleDeduction, given.scaleDeduction);
    EXPECT_EQ(figures->gross, given.gross);
}

INSTANTIATE_TEST_SUITE_P(
    Figures, GrossTable,
    testing::Values(
        GrossCase{"12540", "4320", "0.5", "103", "8117"},
        // If the gross is captured before the tare, it is the weight of the whole vehicle.
        GrossCase{"12540", "", "", "0", "12540"}, GrossCase{"12540", "4320", "", "0", "8220"},
        // Ties are rounded to the even neighbour: 102.5 and 103.5.
        GrossCase{"8200", "0", "0.5", "102", "8098"}, GrossCase{"8280", "0", "0.5", "104", "8176"},
        // A tare above the initial gross gives a negative figure.
        GrossCase{"4000", "5000", "", "0", "-1000"},
        GrossCase{"4000", "5000", "0.5", "-12", "-988"}, GrossCase{"-5", "", "", "0", "-5"},
        GrossCase{"-800", "400", "0.5", "-15", "-1185"}, GrossCase{"1250.5", "0", "", "0", "1250"},
        GrossCase{"1251.5", "0", "", "0", "1252"}, GrossCase{" 1 2 kg", "x", "y", "0", "12"}));

TEST(GrossFiguresOf, WritesNothingWithoutAnInitialGross) {
    EXPECT_FALSE(GrossFiguresOf("", "4320", "0.5"));
    EXPECT_FALSE(GrossFiguresOf("0", "4320", "0.5"));
    EXPECT_FALSE(GrossFiguresOf("kg", "", ""));
}

TEST(GrossFiguresOf, RoundsTheQuotientToFifteenDigitsBeforeMultiplying) {
    // (0.1 - 0.3) / 40 is -0.0049999999999999992 as a double and -0.005 after the conversion to
    // text. A rate of 100 then makes it a tie that is rounded to 0, and a rate of 300 one that is
    // rounded to -2.
    const auto figures = GrossFiguresOf("0.1", "0.3", "300");
    ASSERT_TRUE(figures);
    EXPECT_EQ(figures->scaleDeduction, "-2");
    ASSERT_GT(300 * ((0.1 - 0.3) / 40), -1.5) << "without the conversion it would be rounded to -1";
}

TEST(NetWeightOf, SubtractsBagsShortageAndDeduction) {
    EXPECT_EQ(NetWeightOf("8117", "", "", "17"), "8100");
    EXPECT_EQ(NetWeightOf("8117", "7", "10", "100"), "8000");
}

TEST(NetWeightOf, CountsBlanksAsZero) {
    EXPECT_EQ(NetWeightOf("", "", "", ""), "0");
}

TEST(NetWeightOf, ShowsANegativeNetWithItsMinus) {
    EXPECT_EQ(NetWeightOf("", "", "", "40"), "-40");
    EXPECT_EQ(NetWeightOf("100", "", "", "9999"), "-9899");
}

TEST(ShareOfLine, SharesTheWorkedExampleOverTwoLines) {
    const WeighmentTotals totals{8117, 0, 17, 8100, 100};
    const BagLineFigures sixty = ShareOfLine(totals, 60);
    EXPECT_EQ(NumberText(sixty.bagWeight), "81.17");
    EXPECT_EQ(NumberText(sixty.otherDeduction), "10.2");
    EXPECT_EQ(NumberText(sixty.netWeight), "4860");
    const BagLineFigures forty = ShareOfLine(totals, 40);
    EXPECT_EQ(NumberText(forty.bagWeight), "81.17");
    EXPECT_EQ(NumberText(forty.otherDeduction), "6.8");
    EXPECT_EQ(NumberText(forty.netWeight), "3240");
}

TEST(ShareOfLine, PoolsShortageAndDeduction) {
    const WeighmentTotals totals{4000, 20, 40, 3940, 40};
    const BagLineFigures thirty = ShareOfLine(totals, 30);
    EXPECT_EQ(thirty.bagWeight, 100);
    EXPECT_EQ(thirty.otherDeduction, 45);
    EXPECT_EQ(thirty.netWeight, 2955);
    const BagLineFigures ten = ShareOfLine(totals, 10);
    EXPECT_EQ(ten.bagWeight, 100);
    EXPECT_EQ(ten.otherDeduction, 15);
    EXPECT_EQ(ten.netWeight, 985);
}

TEST(ShareOfLine, GivesASingleLineAllWeights) {
    const WeighmentTotals totals{8217, 3, 14, 8200, 120};
    const BagLineFigures only = ShareOfLine(totals, 120);
    EXPECT_EQ(only.bagWeight * 120, 8217);
    EXPECT_EQ(only.otherDeduction, Divide(17, 120) * 120);
    EXPECT_EQ(only.netWeight, Divide(8200, 120) * 120);
}

TEST(ShareOfLine, FailsWithoutBags) {
    try {
        ShareOfLine({8117, 0, 17, 8100, 0}, 0);
        FAIL() << "a division by no bags must fail";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::DivisionByZero);
    }
}

} // namespace
} // namespace Quillane
