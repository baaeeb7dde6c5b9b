// Taking the reading as the gross or the tare weight.

#include "support/ProcessEnd.h"
#include "weighment/WeighmentWeights.h"

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::Joined;
using Testing::Lines;
using Testing::ProcessEnd;
using Testing::ScreenDriver;

using FrmWeighmentCapture = Testing::WeighmentWeights;

TEST_F(FrmWeighmentCapture, GrossButtonTakesTheReading) {
    EXPECT_EQ(
        Capturing(screen->CmdGrossWeight, "12540"),
        (Lines{// The press moves the focus to the button.
               "Validate TxtArrivalId", "Select count(*) From Arrivals where ArrivalID = 1043",
               "LostFocus TxtArrivalId", "GotFocus CmdGrossWeight",
               // The text is written while the focus is still on the button.
               "TxtInitialGrossWeight = '12540'", "Validate CmdGrossWeight",
               "LostFocus CmdGrossWeight", "GotFocus TxtInitialGrossWeight",
               "TxtInitialGrossWeight 0xC0FFFF",
               // The explicit call of the change handler.
               "TxtScaleDeductKg = '0'", "TxtGrossWeight = '12540'", "TxtNetWeight = '12540'",
               "TxtMoundKgs = '313-20'", "TxtGrossWeight off", "Validate TxtInitialGrossWeight",
               "LostFocus TxtInitialGrossWeight", "GotFocus CmdTareWeight",
               "TxtInitialGrossWeight off"}));
    EXPECT_EQ(screen->TxtGrossWeight.BackColor(), ClosedGrey);
}

TEST_F(FrmWeighmentCapture, TareButtonTakesTheReading) {
    Capturing(screen->CmdGrossWeight, "12540");
    const Lines computed{"TxtScaleDeductKg = '0'", "TxtGrossWeight = '8220'",
                         "TxtNetWeight = '8220'", "TxtMoundKgs = '205-20'"};
    EXPECT_EQ(
        Capturing(screen->CmdTareWeight, "4320"),
        Joined({// The focus comes first, so the text computes a first time.
                {"Validate CmdTareWeight", "LostFocus CmdTareWeight", "GotFocus TxtTareWeight",
                 "TxtTareWeight 0xC0FFFF", "TxtTareWeight = '4320'"},
                computed,
                // The change handler is called explicitly again.
                computed,
                {"Validate TxtTareWeight", "LostFocus TxtTareWeight", "GotFocus TxtVehicleNo"}}));
    EXPECT_EQ(Enabled(), "iTg") << "the tare stays enabled";
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

TEST_F(FrmWeighmentCapture, TareMayBeTakenBeforeTheGross) {
    const Lines trace = Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Lines(trace.end() - 5, trace.end()),
              (Lines{"TxtTareWeight = '4320'", "TxtGrossWeight off", "Validate TxtTareWeight",
                     "LostFocus TxtTareWeight", "GotFocus TxtVehicleNo"}))
        << "nothing is computed";
    EXPECT_EQ(Figures(), " / 0 / 0-0");
    Capturing(screen->CmdGrossWeight, "12540");
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

TEST_F(FrmWeighmentCapture, GrossMayBeTakenBeforeTheTare) {
    Capturing(screen->CmdGrossWeight, "12540");
    EXPECT_EQ(Figures(), "12540 / 12540 / 313-20");
    Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

// The capture disables its box again; the next one enables it.
TEST_F(FrmWeighmentCapture, SecondGrossReplacesTheFirst) {
    Capturing(screen->CmdGrossWeight, "12540");
    ASSERT_FALSE(screen->TxtInitialGrossWeight.Enabled());
    EXPECT_EQ(Capturing(screen->CmdGrossWeight, "11000"),
              (Lines{"Validate CmdTareWeight", "LostFocus CmdTareWeight", "GotFocus CmdGrossWeight",
                     "TxtInitialGrossWeight on", "TxtInitialGrossWeight = '11000'",
                     "Validate CmdGrossWeight", "LostFocus CmdGrossWeight",
                     "GotFocus TxtInitialGrossWeight", "TxtScaleDeductKg = '0'",
                     "TxtGrossWeight = '11000'", "TxtNetWeight = '11000'", "TxtMoundKgs = '275-0'",
                     "Validate TxtInitialGrossWeight", "LostFocus TxtInitialGrossWeight",
                     "GotFocus CmdTareWeight", "TxtInitialGrossWeight off"}));
    EXPECT_EQ(Figures(), "11000 / 11000 / 275-0");
}

// A gross weight entered in its own box disables the other two.
TEST_F(FrmWeighmentCapture, TareButtonEnablesADisabledTareBox) {
    screen->TxtGrossWeight.SetFocus();
    screen->TxtGrossWeight.SetText("500");
    ASSERT_EQ(Enabled(), "itG");
    const Lines trace = Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Lines(trace.begin() + 3, trace.end()),
              (Lines{"TxtTareWeight on", "Validate CmdTareWeight", "LostFocus CmdTareWeight",
                     "GotFocus TxtTareWeight", "TxtTareWeight 0xC0FFFF", "TxtTareWeight = '4320'",
                     "TxtGrossWeight off", "TxtGrossWeight 0xE0E0E0", "Validate TxtTareWeight",
                     "LostFocus TxtTareWeight", "GotFocus TxtVehicleNo"}));
    EXPECT_EQ(Enabled(), "iTg");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "4320");
}

TEST_F(FrmWeighmentCapture, TareAboveTheGrossGivesNegativeWeights) {
    Capturing(screen->CmdGrossWeight, "4320");
    Capturing(screen->CmdTareWeight, "4361");
    EXPECT_EQ(Figures(), "-41 / -41 / -1-1");
}

TEST_F(FrmWeighmentCapture, NothingIsTakenWithoutAReading) {
    for (JeweledButton* button : {&screen->CmdGrossWeight, &screen->CmdTareWeight}) {
        for (const char* reading : {"", "0", "000", "-5", "kg", "0.0"}) {
            button->SetFocus();
            EXPECT_EQ(Capturing(*button, reading), Lines{}) << reading;
        }
    }
}

TEST_F(FrmWeighmentCapture, LeadingNumberOfTheReadingIsTaken) {
    const std::pair<const char*, const char*> readings[] = {
        {"1250.5", "1250.5"}, {"1250kg", "1250"},     {"0012500", "12500"},
        {" 12 50", "1250"},   {"9999999", "9999999"}, {"0.5", "0.5"}};
    for (const auto& [reading, taken] : readings) {
        screen->NewWeighment();
        Capturing(screen->CmdGrossWeight, reading);
        EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), taken);
        Capturing(screen->CmdTareWeight, reading);
        EXPECT_EQ(screen->TxtTareWeight.Text(), taken);
        EXPECT_EQ(Figures(), " / 0 / 0-0") << "a gross of 0 is not shown";
    }
}

TEST_F(FrmWeighmentCapture, SpaceBarPressesTheButtons) {
    screen->TxtWeight.SetText("12540");
    screen->CmdGrossWeight.SetFocus();
    ScreenDriver(*screen).Press(Qt::Key_Space);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(screen->ActiveControlName(), "CmdTareWeight");
}

TEST_F(FrmWeighmentCapture, TareIsTakenIfItsChangeHandlerDisablesTheBox) {
    screen->TxtTareWeight.Change = [this] { screen->TxtTareWeight.SetEnabled(false); };
    Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "4320");
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
}

TEST_F(FrmWeighmentCapture, FailureInACaptureEndsTheProcess) {
    const std::pair<JeweledButton*, VisualControl*> unreachable[] = {
        {&screen->CmdGrossWeight, &screen->CmdTareWeight},
        {&screen->CmdTareWeight, &screen->TxtVehicleNo}};
    for (const auto& [button, target] : unreachable) {
        target->SetEnabled(false);
        screen->TxtWeight.SetText("4320");
        ProcessEnd end;
        BoxAnswers answers;
        answers.Expect(Critical("Invalid procedure call or argument", "Quillane"));
        ScreenDriver(*screen).Click(*button);
        EXPECT_EQ(end.Codes().size(), 1u) << "a failure ends the process";
        target->SetEnabled(true);
    }
}

TEST_F(FrmWeighmentCapture, TypedWeightsAreTakenLikeLiveOnes) {
    ScreenDriver driver(*screen);
    driver.Click(screen->ChkManualWeight);
    EXPECT_FALSE(screen->Timer.Enabled());
    EXPECT_FALSE(screen->TxtWeight.Locked());
    screen->TxtWeight.SetFocus();
    driver.Type("1250.5kg");
    EXPECT_EQ(screen->TxtWeight.Text(), "1250.5kg") << "the box has no key filter";
    driver.Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "1250.5");
    EXPECT_EQ(Figures(), "1250 / 1250 / 31-10")
        << "half a kilogram is rounded to the even neighbour";
    driver.Click(screen->ChkManualWeight);
    EXPECT_TRUE(screen->Timer.Enabled());
    EXPECT_TRUE(screen->TxtWeight.Locked());
}

TEST_F(FrmWeighmentCapture, WorkedExampleGivesItsFigures) {
    Capturing(screen->CmdGrossWeight, "12540");
    Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Writing(screen->TxtKandaDeduction, "0.5"),
              (Lines{"TxtKandaDeduction = '0.5'", "TxtScaleDeductKg = '103'",
                     "TxtGrossWeight = '8117'", "TxtNetWeight = '8117'", "TxtMoundKgs = '202-37'",
                     "TxtNetWeight = '8117'", "TxtMoundKgs = '202-37'"}));
    screen->TxtDeduction.SetFocus();
    EXPECT_EQ(Doing([&] { ScreenDriver(*screen).Type("17"); }),
              (Lines{"BtnOpen off", "BtnSave on", "TxtDeduction = '1'", "TxtNetWeight = '8116'",
                     "TxtMoundKgs = '202-36'", "TxtDeduction = '17'", "TxtNetWeight = '8100'",
                     "TxtMoundKgs = '202-20'"}));
    EXPECT_EQ(Figures(), "8117 / 8100 / 202-20");
}

} // namespace
} // namespace Quillane
