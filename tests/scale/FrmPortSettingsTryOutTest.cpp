#include "scale/SettingBench.h"

#include <QTimer>

namespace Quillane {
namespace {

using Testing::ClosedPort;
using Testing::ScreenDriver;
using Testing::SettingBench;
using Testing::WaitFor;

using namespace std::string_literals;

constexpr const char* frames = "+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n+0012";

struct FrmPortSettingsTryOut : SettingBench {
    FrmPortSettingsTryOut() { ShowWithOpenPort(); }

    void Choose(const char* direction, const char* length, int reversed) {
        screen.CboDirection.SetText(direction);
        screen.TxtDataFrom.SetText(length);
        screen.ChkIsReversed.SetValue(reversed);
    }
};

TEST_F(FrmPortSettingsTryOut, IsStartedOnlyByItsButton) {
    terminal.Write(frames);
    ScreenDriver(screen).Click(screen.CmdModifiedWeight);
    EXPECT_TRUE(screen.Timer.Enabled());
    EXPECT_EQ(screen.Timer.Interval(), 200);
    EXPECT_EQ(screen.TxtNotModified.Text(), "") << "nothing is read before the first tick";
    EXPECT_TRUE(WaitFor([&] { return screen.TxtNotModified.Text() == "001250"; }));
    screen.CmdModifiedWeight.Click();
    EXPECT_TRUE(screen.Timer.Enabled()) << "another press does not stop it";
}

TEST_F(FrmPortSettingsTryOut, ShowsTheNumberBeforeAndAfterTheSettings) {
    const std::vector<std::tuple<const char*, const char*, int, std::string, std::string>> cases{
        {"Right", "6", 0, frames, "001250/1250"},
        {"Right", "3", 0, frames, "001250/250"},
        {"Left", "3", 0, frames, "001250/1"},
        {"Left", "0", 0, frames, "001250/0"},
        {"Left", "", 0, frames, "001250/0"},
        {"Right", "x", 0, frames, "001250/0"}, // a letter counts as 0
        {"Right", "6", 0, "ST,GS,+001234.5kg\r\nST,GS,+001234.5kg\r\nST,GS,+001234.5kg\r\n", "5/5"},
        // Leading zeros are removed before the reversal here, and kept on the weighment screen.
        {"Left", "6", 1, "\x02"s + "052100\x03\x02" + "052100\x03\x02" + "052100\x03",
         "052100/00125"},
        {"Left", "6", 1, "000120\r000120\r000120\r", "000120/021"},
        // A single digit is shown here, and never on the weighment screen.
        {"Right", "6", 0, "  7\r  7\r  7\r", "7/7"},
        // With one or two runs no number is read here, but one is read on the weighment screen.
        {"Right", "6", 0, "12345", "/0"},
        {"Right", "6", 0, "1234 5678", "/0"},
        {"Right", "6", 0, "ERR\r\n", "/0"},
        {"Right", "6", 0, "", "/0"},
    };
    for (const auto& [direction, length, reversed, bytes, shown] : cases) {
        Choose(direction, length, reversed);
        EXPECT_EQ(TryOut(bytes), shown) << direction << length << reversed << " " << bytes;
    }
}

TEST_F(FrmPortSettingsTryOut, SetsBothBoxesOnEveryTickAlsoBetweenBursts) {
    Choose("Right", "6", 0);
    std::vector<std::string> writes;
    for (TextBox* box : {&screen.TxtNotModified, &screen.TxtModifiedWeight})
        box->Change = [&writes, box] { writes.push_back(box->Name() + "=" + box->Text()); };
    TryOut(frames);
    TryOut("");
    TryOut("");
    EXPECT_EQ(writes, (std::vector<std::string>{"TxtNotModified=001250", "TxtModifiedWeight=1250",
                                                "TxtNotModified=", "TxtModifiedWeight=0",
                                                "TxtNotModified=", "TxtModifiedWeight=0"}));
    EXPECT_EQ(screen.TxtRawWeight.Text(), "") << "the test does not change the raw text";
}

TEST_F(FrmPortSettingsTryOut, UsesOtherSettingsAtTheNextTick) {
    screen.CmdModifiedWeight.Click();
    Choose("Left", "3", 0);
    const auto shows = [&](const std::string& weight) {
        terminal.Write(frames);
        return WaitFor([&] { return terminal.Unread() == 0; }) && WaitFor([&, tries = 0]() mutable {
                   if (++tries % 50 == 0)
                       terminal.Write(frames);
                   return screen.TxtModifiedWeight.Text() == weight;
               });
    };
    EXPECT_TRUE(shows("1"));
    ScreenDriver(screen).Click(screen.CboDirection).Type("R").Press(Qt::Key_Return);
    EXPECT_EQ(screen.CboDirection.Text(), "Right");
    EXPECT_TRUE(shows("250"));
    ScreenDriver(screen).Click(screen.TxtDataFrom).Press(Qt::CTRL | Qt::Key_A).Type("6");
    EXPECT_TRUE(shows("1250"));
    ScreenDriver(screen).Click(screen.ChkIsReversed);
    EXPECT_TRUE(shows("0521"));
}

TEST_F(FrmPortSettingsTryOut, ReportsALineThatHangsUpAndThenAClosedPortOnEveryTick) {
    Choose("Right", "6", 0);
    EXPECT_EQ(TryOut(frames), "001250/1250");
    screen.CmdModifiedWeight.Click();
    terminal.HangUp();
    boxes.Expect(HungUp()).Expect(HungUp()).Expect(HungUp(), BoxAnswer::Ok, [&] {
        EXPECT_EQ(screen.TxtModifiedWeight.Text(), "1250") << "a failure does not change the boxes";
        screen.Timer.SetEnabled(false);
    });
    EXPECT_TRUE(WaitFor([&] { return boxes.Remaining() == 0; }));
    EXPECT_FALSE(screen.CM.PortOpen());
}

TEST_F(FrmPortSettingsTryOut, ReportsAClosedPortUntilItIsOpened) {
    screen.CM.SetPortOpen(false);
    screen.CmdModifiedWeight.Click();
    const auto openBetweenBoxes = [&] {
        QTimer::singleShot(0, &screen, [&] { ScreenDriver(screen).Click(screen.CmdOpenPort); });
    };
    boxes.Expect(ClosedPort).Expect(ClosedPort, BoxAnswer::Ok, openBetweenBoxes);
    EXPECT_TRUE(WaitFor([&] { return screen.CM.PortOpen(); }));
    terminal.Write(frames);
    EXPECT_TRUE(WaitFor([&] { return screen.TxtNotModified.Text() == "001250"; }));
}

TEST_F(FrmPortSettingsTryOut, LetsTheOperatorCloseTheScreenBetweenTwoBoxes) {
    screen.CM.SetPortOpen(false);
    screen.CmdModifiedWeight.Click();
    boxes.Expect(ClosedPort, BoxAnswer::Ok, [&] {
        QTimer::singleShot(0, &screen, [&] { ScreenDriver(screen).Click(screen.CmdClose); });
    });
    EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }));
}

// The same with real boxes and real keys: Enter answers the box, and the next one is shown a moment
// later.
TEST_F(FrmPortSettingsTryOut, LeavesAMomentForAKeyAfterARealBox) {
    screen.CM.SetPortOpen(false);
    screen.CmdClose.SetFocus();
    screen.CmdModifiedWeight.Click();
    bool answered = false;
    const Testing::VisitBox visit([&](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Serial line");
        answered = true;
        Testing::PressIn(box, Qt::Key_Return);
    });
    EXPECT_TRUE(WaitFor([&] { return answered && !BoxIsUp(); }));
    ScreenDriver(screen).Press(Qt::Key_Space);
    EXPECT_FALSE(screen.IsLoaded());
}

TEST_F(FrmPortSettingsTryOut, StopsWithTheScreen) {
    screen.CmdModifiedWeight.Click();
    terminal.Write(frames);
    EXPECT_TRUE(WaitFor([&] { return screen.TxtNotModified.Text() == "001250"; }));
    int writes = 0;
    screen.TxtNotModified.Change = [&] { ++writes; };
    screen.Unload();
    Screen another("Another", "");
    Timer clock(another, "Timer", 100);
    int ticks = 0;
    clock.Tick = [&] { ++ticks; };
    another.Load();
    EXPECT_TRUE(WaitFor([&] { return ticks == 5; }));
    EXPECT_EQ(writes, 0);
    another.Unload();
}

} // namespace
} // namespace Quillane
