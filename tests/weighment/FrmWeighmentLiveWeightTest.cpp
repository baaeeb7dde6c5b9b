// The reading that follows the line, and a typed reading.

#include "weighment/WeighmentWeights.h"

#include <QTimer>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::ScreenDriver;
using Testing::WaitFor;

using FrmWeighmentLiveWeight = Testing::WeighmentWeights;

constexpr const char* Frames = "+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n+0012";

TEST_F(FrmWeighmentLiveWeight, ManualWeightKeepsTheLineOpen) {
    screen->ChkManualWeight.SetValue(1);
    EXPECT_TRUE(screen->CM.PortOpen());
    screen->ChkManualWeight.SetValue(0);
    EXPECT_TRUE(screen->CM.PortOpen());
    EXPECT_EQ(screen->Timer.Interval(), 300);
}

TEST_F(FrmWeighmentLiveWeight, TimerRunsIfTheScreenItselfGetsTheFocus) {
    screen->ChkManualWeight.SetValue(1);
    for (Control* control : screen->Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control))
            visual->SetEnabled(false);
    EXPECT_EQ(screen->ActiveControlName(), "");
    EXPECT_TRUE(screen->Timer.Enabled()) << "also when the weight is typed";
    EXPECT_FALSE(screen->TxtWeight.Locked());
}

TEST_F(FrmWeighmentLiveWeight, ReadingFollowsTheLine) {
    line.Write(Frames);
    EXPECT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "1250"; }));
    line.Write("+000000 kg\r\n+000000 kg\r\n+000000 kg\r\n");
    EXPECT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "0"; }));
    EXPECT_EQ(screen->BtnSave.Enabled(), false) << "a reading is not an entry";
}

TEST_F(FrmWeighmentLiveWeight, ReversedReadingIsShownWithItsZerosAndTakenWithoutThem) {
    RunBeside("UPDATE PortSettings SET RegistryValue = '1' WHERE RegistryKey = 'IsReversed'");
    screen->NewWeighment();
    line.Write("+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n");
    ASSERT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "052100"; }));
    ScreenDriver(*screen).Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "52100");
}

TEST_F(FrmWeighmentLiveWeight, ManualWeightLeavesTheLineUnread) {
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

TEST_F(FrmWeighmentLiveWeight, LostLineIsReportedAtEachTickUntilManualWeight) {
    screen->TxtWeight.SetText("777");
    BoxAnswers answers;
    const auto box = Critical("Port 1 (" + line.Device() +
                                  ") is closed: the line was disconnected. Check the cable.",
                              "Serial line");
    // While a box is shown, other ticks are due, but none occurs.
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

TEST_F(FrmWeighmentLiveWeight, CaptureDuringATickTakesTheFormerReading) {
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
