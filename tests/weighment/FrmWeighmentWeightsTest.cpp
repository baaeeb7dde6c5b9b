// The cascade of the weights: the handlers that each write to a box runs, in order.

#include "weighment/WeighmentWeights.h"

namespace Quillane {
namespace {

using Testing::Joined;
using Testing::Lines;

using FrmWeighmentWeights = Testing::WeighmentWeights;

TEST_F(FrmWeighmentWeights, LoneZeroIsClearedInBoxesWithoutTheFocus) {
    for (TextBox* box : {&screen->TxtInitialGrossWeight, &screen->TxtTareWeight}) {
        const std::string name = box->Name();
        EXPECT_EQ(Writing(*box, "0"), (Lines{name + " = '0'", name + " = ''"}));
        for (const std::string text : {"00", "0.0", "5", ""})
            EXPECT_EQ(Writing(*box, text), (Lines{name + " = '" + text + "'"}));
    }
    const Lines net{"TxtNetWeight = '0'", "TxtMoundKgs = '0-0'"};
    EXPECT_EQ(Writing(screen->TxtGrossWeight, "0"),
              Joined({{"TxtGrossWeight = '0'"}, net, {"TxtGrossWeight = ''"}, net}));
    EXPECT_EQ(Writing(screen->TxtGrossWeight, "00"), Joined({{"TxtGrossWeight = '00'"}, net}));
}

TEST_F(FrmWeighmentWeights, LoneZeroStaysInTheBoxWithTheFocus) {
    screen->TxtTareWeight.SetFocus();
    EXPECT_EQ(Writing(screen->TxtTareWeight, "0"),
              (Lines{"TxtTareWeight = '0'", "TxtGrossWeight off"}));
    screen->DtpArrivalDate.SetFocus();
    screen->NewWeighment();
    screen->TxtInitialGrossWeight.SetFocus();
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, "0"), (Lines{"TxtInitialGrossWeight = '0'"}));
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "0");
}

TEST_F(FrmWeighmentWeights, WriteToABoxWithoutTheFocusComputesNothing) {
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, "12540"),
              (Lines{"TxtInitialGrossWeight = '12540'"}));
    EXPECT_EQ(Writing(screen->TxtTareWeight, "4320"), (Lines{"TxtTareWeight = '4320'"}));
    EXPECT_EQ(Figures(), " / 0 / 0-0");
    EXPECT_EQ(Enabled(), "ITG");
}

TEST_F(FrmWeighmentWeights, EitherWeighingDisablesTheGrossBox) {
    const std::pair<const char*, const char*> given[] = {{"5", ""}, {"", "5"}, {"5", "5"}};
    for (const auto& [initial, tare] : given) {
        screen->TxtGrossWeight.SetEnabled(true);
        screen->TxtGrossWeight.SetBackColor(White);
        screen->TxtInitialGrossWeight.SetText(initial);
        screen->TxtTareWeight.SetText(tare);
        screen->RefreshGrossEntry();
        EXPECT_FALSE(screen->TxtGrossWeight.Enabled());
        EXPECT_EQ(screen->TxtGrossWeight.BackColor(), ClosedGrey);
    }
}

TEST_F(FrmWeighmentWeights, GrossBoxWithoutWeighingsIsWhiteButNotEnabled) {
    screen->TxtInitialGrossWeight.SetText("  ");
    screen->TxtTareWeight.SetText(" ");
    for (const bool enabled : {true, false}) {
        screen->TxtGrossWeight.SetEnabled(enabled);
        screen->TxtGrossWeight.SetBackColor(ClosedGrey);
        screen->RefreshGrossEntry();
        EXPECT_EQ(screen->TxtGrossWeight.Enabled(), enabled);
        EXPECT_EQ(screen->TxtGrossWeight.BackColor(), White);
    }
}

TEST_F(FrmWeighmentWeights, LoneZeroOfTheGrossIsClearedWithoutWeighings) {
    screen->TxtGrossWeight.SetFocus();
    screen->TxtGrossWeight.SetText("0");
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "0");
    screen->RefreshGrossEntry();
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "");
    screen->TxtGrossWeight.SetText("00");
    screen->RefreshGrossEntry();
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "00");
}

TEST_F(FrmWeighmentWeights, GrossWithTheFocusDisablesBothWeighingsAndPaintsThemGrey) {
    screen->TxtGrossWeight.SetFocus();
    EXPECT_EQ(Writing(screen->TxtGrossWeight, "500"),
              (Lines{"TxtGrossWeight = '500'", "TxtNetWeight = '500'", "TxtMoundKgs = '12-20'",
                     "TxtInitialGrossWeight off", "TxtTareWeight off",
                     "TxtInitialGrossWeight 0xE0E0E0", "TxtTareWeight 0xE0E0E0"}));
    screen->TxtInitialGrossWeight.SetBackColor(White);
    screen->TxtTareWeight.SetBackColor(White);
    EXPECT_EQ(Writing(screen->TxtGrossWeight, ""),
              (Lines{"TxtGrossWeight = ''", "TxtNetWeight = '0'", "TxtMoundKgs = '0-0'",
                     "TxtInitialGrossWeight on", "TxtTareWeight on",
                     "TxtInitialGrossWeight 0xE0E0E0", "TxtTareWeight 0xE0E0E0"}));
}

TEST_F(FrmWeighmentWeights, ShortageIsSubtractedFromTheNet) {
    screen->TxtGrossWeight.SetText("4000");
    screen->TxtDeduction.SetText("40");
    EXPECT_EQ(Writing(screen->TxtShortage, "20"),
              (Lines{"TxtShortage = '20'", "TxtNetWeight = '3940'", "TxtMoundKgs = '98-20'"}));
}

TEST_F(FrmWeighmentWeights, BagsWeightDoesNotStartAComputation) {
    screen->TxtGrossWeight.SetText("4000");
    EXPECT_EQ(Writing(screen->TxtBagsWeight, "100"), (Lines{"TxtBagsWeight = '100'"}));
    EXPECT_EQ(Writing(screen->TxtDeduction, ""),
              (Lines{"TxtDeduction = ''", "TxtNetWeight = '3900'", "TxtMoundKgs = '97-20'"}));
}

TEST_F(FrmWeighmentWeights, DeductionAboveTheGrossGivesANegativeNet) {
    EXPECT_EQ(Writing(screen->TxtDeduction, "41"),
              (Lines{"TxtDeduction = '41'", "TxtNetWeight = '-41'", "TxtMoundKgs = '-1-1'"}));
}

// Nothing is computed only if the gross is exactly 0.
TEST_F(FrmWeighmentWeights, NegativeInitialGrossIsComputed) {
    screen->TxtInitialGrossWeight.SetFocus();
    EXPECT_EQ(
        Writing(screen->TxtInitialGrossWeight, "-85"),
        (Lines{"TxtInitialGrossWeight = '-85'", "TxtScaleDeductKg = '0'", "TxtGrossWeight = '-85'",
               "TxtNetWeight = '-85'", "TxtMoundKgs = '-2-5'", "TxtGrossWeight off"}));
}

TEST_F(FrmWeighmentWeights, ClearedNetKeepsTheMounds) {
    screen->TxtGrossWeight.SetText("500");
    EXPECT_EQ(Writing(screen->TxtNetWeight, ""), (Lines{"TxtNetWeight = ''"}));
    EXPECT_EQ(screen->TxtMoundKgs.Text(), "12-20");
}

TEST_F(FrmWeighmentWeights, ClearingABoxWithoutTheFocusChangesNoFigures) {
    FillIn();
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, ""), (Lines{"TxtInitialGrossWeight = ''"}));
    screen->ComputeGrossWeight();
    EXPECT_EQ(Figures(), "8220 / 8203 / 205-3") << "no initial gross, nothing computed";
}

} // namespace
} // namespace Quillane
