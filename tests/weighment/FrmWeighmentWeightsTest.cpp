// The weights on the screen: captures, the cascade of the change handlers, the live reading.

#include "support/ProcessEnd.h"
#include "weighment/StateWatch.h"

#include <QTimer>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::Joined;
using Testing::Lines;
using Testing::ProcessEnd;
using Testing::ScreenDriver;
using Testing::StateWatch;
using Testing::Trace;
using Testing::WaitFor;

constexpr const char* Frames = "+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n+0012";

class FrmWeighmentWeights : public Testing::WeighmentScreenTest {
protected:
    Lines Doing(const std::function<void()>& act) {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        act();
        return trace.Take();
    }
    Lines Capturing(JeweledButton& button, std::string_view reading) {
        screen->TxtWeight.SetText(reading);
        return Doing([&] { ScreenDriver(*screen).Click(button); });
    }
    Lines Writing(TextBox& box, std::string_view text) {
        return Doing([&] { box.SetText(text); });
    }

    /// Gross, net and mounds as they stand.
    std::string Figures() {
        return screen->TxtGrossWeight.Text() + " / " + screen->TxtNetWeight.Text() + " / " +
               screen->TxtMoundKgs.Text();
    }
    /// Closed boxes in lower case: initial gross, tare, gross.
    std::string Enabled() {
        return std::string(screen->TxtInitialGrossWeight.Enabled() ? "I" : "i") +
               (screen->TxtTareWeight.Enabled() ? "T" : "t") +
               (screen->TxtGrossWeight.Enabled() ? "G" : "g");
    }
};

TEST_F(FrmWeighmentWeights, OfTheGrossCapture) {
    EXPECT_EQ(
        Capturing(screen->CmdGrossWeight, "12540"),
        (Lines{// The press moves the focus to the button.
               "Validate TxtArrivalId", "Select count(*) From Arrivals where ArrivalID = 1043",
               "LostFocus TxtArrivalId", "GotFocus CmdGrossWeight",
               // The text, with the focus still on the button.
               "TxtInitialGrossWeight = '12540'", "Validate CmdGrossWeight",
               "LostFocus CmdGrossWeight", "GotFocus TxtInitialGrossWeight",
               "TxtInitialGrossWeight 0xC0FFFF",
               // The change handler by hand.
               "TxtScaleDeductKg = '0'", "TxtGrossWeight = '12540'", "TxtNetWeight = '12540'",
               "TxtMoundKgs = '313-20'", "TxtGrossWeight off", "Validate TxtInitialGrossWeight",
               "LostFocus TxtInitialGrossWeight", "GotFocus CmdTareWeight",
               "TxtInitialGrossWeight off"}));
    EXPECT_EQ(screen->TxtGrossWeight.BackColor(), ClosedGrey);
}

TEST_F(FrmWeighmentWeights, OfTheTareCapture) {
    Capturing(screen->CmdGrossWeight, "12540");
    const Lines computed{"TxtScaleDeductKg = '0'", "TxtGrossWeight = '8220'",
                         "TxtNetWeight = '8220'", "TxtMoundKgs = '205-20'"};
    EXPECT_EQ(
        Capturing(screen->CmdTareWeight, "4320"),
        Joined({// The focus comes first, so the text computes a first time.
                {"Validate CmdTareWeight", "LostFocus CmdTareWeight", "GotFocus TxtTareWeight",
                 "TxtTareWeight 0xC0FFFF", "TxtTareWeight = '4320'"},
                computed,
                // And by hand a second time.
                computed,
                {"Validate TxtTareWeight", "LostFocus TxtTareWeight", "GotFocus TxtVehicleNo"}}));
    EXPECT_EQ(Enabled(), "iTg") << "the tare stays open";
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

TEST_F(FrmWeighmentWeights, OfATareBeforeTheGross) {
    const Lines trace = Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Lines(trace.end() - 5, trace.end()),
              (Lines{"TxtTareWeight = '4320'", "TxtGrossWeight off", "Validate TxtTareWeight",
                     "LostFocus TxtTareWeight", "GotFocus TxtVehicleNo"}))
        << "nothing is computed";
    EXPECT_EQ(Figures(), " / 0 / 0-0");
    Capturing(screen->CmdGrossWeight, "12540");
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

TEST_F(FrmWeighmentWeights, OfAGrossBeforeTheTare) {
    Capturing(screen->CmdGrossWeight, "12540");
    EXPECT_EQ(Figures(), "12540 / 12540 / 313-20");
    Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(Figures(), "8220 / 8220 / 205-20");
}

TEST_F(FrmWeighmentWeights, WithATareAboveTheGrossAreNegative) {
    Capturing(screen->CmdGrossWeight, "4320");
    Capturing(screen->CmdTareWeight, "4361");
    EXPECT_EQ(Figures(), "-41 / -41 / -1-1");
}

TEST_F(FrmWeighmentWeights, WithNoReadingAreNotCaptured) {
    for (JeweledButton* button : {&screen->CmdGrossWeight, &screen->CmdTareWeight}) {
        for (const char* reading : {"", "0", "000", "-5", "kg", "0.0"}) {
            button->SetFocus();
            EXPECT_EQ(Capturing(*button, reading), Lines{}) << reading;
        }
    }
}

TEST_F(FrmWeighmentWeights, AreCapturedAsTheNumberThatTheReadingBeginsWith) {
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

TEST_F(FrmWeighmentWeights, AreCapturedByTheSpaceBar) {
    screen->TxtWeight.SetText("12540");
    screen->CmdGrossWeight.SetFocus();
    ScreenDriver(*screen).Press(Qt::Key_Space);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(screen->ActiveControlName(), "CmdTareWeight");
}

TEST_F(FrmWeighmentWeights, AreCapturedAlsoWhereAChangeClosesTheTareBox) {
    screen->TxtTareWeight.Change = [this] { screen->TxtTareWeight.SetEnabled(false); };
    Capturing(screen->CmdTareWeight, "4320");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "4320");
    EXPECT_EQ(screen->ActiveControlName(), "TxtVehicleNo");
}

TEST_F(FrmWeighmentWeights, AreCapturedWithoutATrap) {
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

TEST_F(FrmWeighmentWeights, TypedByHandAreCapturedLikeTheLiveOnes) {
    ScreenDriver driver(*screen);
    driver.Click(screen->ChkManualWeight);
    EXPECT_FALSE(screen->Timer.Enabled());
    EXPECT_FALSE(screen->TxtWeight.Locked());
    screen->TxtWeight.SetFocus();
    driver.Type("1250.5kg");
    EXPECT_EQ(screen->TxtWeight.Text(), "1250.5kg") << "the box has no key filter";
    driver.Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "1250.5");
    EXPECT_EQ(Figures(), "1250 / 1250 / 31-10") << "half a kilogram goes to the even neighbour";
    driver.Click(screen->ChkManualWeight);
    EXPECT_TRUE(screen->Timer.Enabled());
    EXPECT_TRUE(screen->TxtWeight.Locked());
}

TEST_F(FrmWeighmentWeights, KeepTheLineOpenWhileWeighedByHand) {
    screen->ChkManualWeight.SetValue(1);
    EXPECT_TRUE(screen->CM.PortOpen());
    screen->ChkManualWeight.SetValue(0);
    EXPECT_TRUE(screen->CM.PortOpen());
    EXPECT_EQ(screen->Timer.Interval(), 300);
}

TEST_F(FrmWeighmentWeights, GoOnTickingWhereTheScreenItselfTakesTheFocus) {
    screen->ChkManualWeight.SetValue(1);
    for (Control* control : screen->Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control))
            visual->SetEnabled(false);
    EXPECT_EQ(screen->ActiveControlName(), "");
    EXPECT_TRUE(screen->Timer.Enabled()) << "also when the weight is typed";
    EXPECT_FALSE(screen->TxtWeight.Locked());
}

TEST_F(FrmWeighmentWeights, OfALoneZeroAreNotShownElsewhere) {
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

TEST_F(FrmWeighmentWeights, OfALoneZeroStayWhereTheFocusIs) {
    screen->TxtTareWeight.SetFocus();
    EXPECT_EQ(Writing(screen->TxtTareWeight, "0"),
              (Lines{"TxtTareWeight = '0'", "TxtGrossWeight off"}));
    screen->DtpArrivalDate.SetFocus();
    screen->NewWeighment();
    screen->TxtInitialGrossWeight.SetFocus();
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, "0"), (Lines{"TxtInitialGrossWeight = '0'"}));
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "0");
}

TEST_F(FrmWeighmentWeights, WrittenWithTheFocusElsewhereComputeNothing) {
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, "12540"),
              (Lines{"TxtInitialGrossWeight = '12540'"}));
    EXPECT_EQ(Writing(screen->TxtTareWeight, "4320"), (Lines{"TxtTareWeight = '4320'"}));
    EXPECT_EQ(Figures(), " / 0 / 0-0");
    EXPECT_EQ(Enabled(), "ITG");
}

TEST_F(FrmWeighmentWeights, CloseTheGrossBoxWhereEitherIsGiven) {
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

TEST_F(FrmWeighmentWeights, PaintTheGrossBoxWhiteWhereNoneIsGivenAndNeverOpenIt) {
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

TEST_F(FrmWeighmentWeights, BlankALoneZeroOfTheGrossWhereNoneIsGiven) {
    screen->TxtGrossWeight.SetFocus();
    screen->TxtGrossWeight.SetText("0");
    ASSERT_EQ(screen->TxtGrossWeight.Text(), "0");
    screen->RefreshGrossEntry();
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "");
    screen->TxtGrossWeight.SetText("00");
    screen->RefreshGrossEntry();
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "00");
}

TEST_F(FrmWeighmentWeights, OfAGrossWithTheFocusCloseTheOtherTwoAndPaintThemGreyBothWays) {
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

TEST_F(FrmWeighmentWeights, OfTheWorkedExample) {
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

TEST_F(FrmWeighmentWeights, LoseTheShortageToo) {
    screen->TxtGrossWeight.SetText("4000");
    screen->TxtDeduction.SetText("40");
    EXPECT_EQ(Writing(screen->TxtShortage, "20"),
              (Lines{"TxtShortage = '20'", "TxtNetWeight = '3940'", "TxtMoundKgs = '98-20'"}));
}

TEST_F(FrmWeighmentWeights, DoNotFollowTheBagsWeightByItself) {
    screen->TxtGrossWeight.SetText("4000");
    EXPECT_EQ(Writing(screen->TxtBagsWeight, "100"), (Lines{"TxtBagsWeight = '100'"}));
    EXPECT_EQ(Writing(screen->TxtDeduction, ""),
              (Lines{"TxtDeduction = ''", "TxtNetWeight = '3900'", "TxtMoundKgs = '97-20'"}));
}

TEST_F(FrmWeighmentWeights, BelowTheDeductionAreNegative) {
    EXPECT_EQ(Writing(screen->TxtDeduction, "41"),
              (Lines{"TxtDeduction = '41'", "TxtNetWeight = '-41'", "TxtMoundKgs = '-1-1'"}));
}

TEST_F(FrmWeighmentWeights, KeepTheMoundsWhereTheNetIsBlanked) {
    screen->TxtGrossWeight.SetText("500");
    EXPECT_EQ(Writing(screen->TxtNetWeight, ""), (Lines{"TxtNetWeight = ''"}));
    EXPECT_EQ(screen->TxtMoundKgs.Text(), "12-20");
}

TEST_F(FrmWeighmentWeights, BlankedWithTheFocusElsewhereLeaveTheFiguresAsTheyStand) {
    FillIn();
    EXPECT_EQ(Writing(screen->TxtInitialGrossWeight, ""), (Lines{"TxtInitialGrossWeight = ''"}));
    screen->ComputeGrossWeight();
    EXPECT_EQ(Figures(), "8220 / 8203 / 205-3") << "no initial gross, nothing computed";
}

TEST_F(FrmWeighmentWeights, FollowTheLine) {
    line.Write(Frames);
    EXPECT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "1250"; }));
    line.Write("+000000 kg\r\n+000000 kg\r\n+000000 kg\r\n");
    EXPECT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "0"; }));
    EXPECT_EQ(screen->BtnSave.Enabled(), false) << "a reading is no entry";
}

TEST_F(FrmWeighmentWeights, WithReversedDigitsShowTheirZerosAndAreTakenWithoutThem) {
    RunInFile("UPDATE PortSettings SET RegistryValue = '1' WHERE RegistryKey = 'IsReversed'");
    screen->NewWeighment();
    line.Write("+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n");
    ASSERT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "052100"; }));
    ScreenDriver(*screen).Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "52100");
}

TEST_F(FrmWeighmentWeights, ByHandLeaveTheLineUnreadUntilTheOldestIsShown) {
    screen->ChkManualWeight.SetValue(1);
    screen->TxtWeight.SetText("777");
    std::string pile;
    for (int i = 0; i < 100; ++i)
        pile += "+001111 kg\r\n";
    for (int i = 0; i < 100; ++i)
        pile += "+002222 kg\r\n";
    line.Write(pile);
    ASSERT_TRUE(WaitFor([&] { return line.Unread() == 0; }));
    EXPECT_EQ(screen->TxtWeight.Text(), "777");
    screen->ChkManualWeight.SetValue(0);
    ASSERT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() != "777"; }));
    EXPECT_EQ(screen->TxtWeight.Text(), "1111");
}

TEST_F(FrmWeighmentWeights, OfALineThatHungUpAreReportedOneBoxATickUntilWeighedByHand) {
    screen->TxtWeight.SetText("777");
    BoxAnswers answers;
    const auto box = Critical("Port 1 (" + line.Device() +
                                  ") is closed: the line has hung up. Is the cable in place?",
                              "Serial line");
    // While a box is up further ticks are due, and none comes.
    screen->Timer.SetInterval(20);
    const auto waitUnderTheBox = [&] {
        int due = 0;
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, [&] { ++due; });
        clock.start(20);
        EXPECT_TRUE(WaitFor([&] { return due == 5; }));
        EXPECT_EQ(answers.Shown().size(), 1u);
    };
    answers.Expect(box, BoxAnswer::Ok, waitUnderTheBox).Expect(box).Expect(box);
    line.HangUp();
    EXPECT_TRUE(WaitFor([&] {
        if (answers.Remaining() == 0)
            screen->ChkManualWeight.SetValue(1);
        return answers.Remaining() == 0;
    }));
    EXPECT_FALSE(screen->Timer.Enabled());
    EXPECT_EQ(screen->TxtWeight.Text(), "777");
}

TEST_F(FrmWeighmentWeights, TakenInTheMidstOfATickAreThoseBeforeIt) {
    screen->Timer.SetEnabled(false);
    screen->TxtWeight.SetText("777");
    line.Write(Frames);
    ScreenDriver driver(*screen);
    QTimer::singleShot(0, [&] { driver.Click(screen->CmdGrossWeight); });
    screen->ReadLiveWeight();
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "777");
    EXPECT_EQ(screen->TxtWeight.Text(), "1250");
}

} // namespace
} // namespace Quillane
