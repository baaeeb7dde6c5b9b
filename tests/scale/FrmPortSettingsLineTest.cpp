#include "scale/SettingBench.h"

#include "support/ProcessEnd.h"

namespace Quillane {
namespace {

using Testing::ClosedPort;
using Testing::Critical;
using Testing::ProcessEnd;
using Testing::ScreenDriver;
using Testing::SettingBench;
using Testing::WaitFor;

using namespace std::string_literals;

constexpr const char* frames = "+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n+0012";

// ---- opening ----

struct FrmPortSettingsOpen : SettingBench {
    void Choose(const char* port, const char* rate, const char* parity, const char* dataBits,
                const char* stopBits) {
        screen.CboPortName.SetText(port);
        screen.CboBitsPerSecond.SetText(rate);
        screen.CboParity.SetText(parity);
        screen.CboDataBits.SetText(dataBits);
        screen.CboStopBits.SetText(stopBits);
    }
};

TEST_F(FrmPortSettingsOpen, OpensTheLineWithTheSettingsOfTheLists) {
    screen.Show();
    Choose("COM1", "9600", "Odd ", "7", "1.5");
    int openings = 0;
    atOpening = [&] {
        ++openings;
        EXPECT_EQ(screen.CM.CommPort(), 1);
        EXPECT_EQ(screen.CM.Settings(), "9600,o,7,1.5");
        EXPECT_FALSE(screen.CM.PortOpen());
    };
    ScreenDriver(screen).Click(screen.CmdOpenPort);
    EXPECT_EQ(openings, 1);
    EXPECT_TRUE(screen.CM.PortOpen());
    EXPECT_EQ(screen.LineSettings, "9600,o,7,1.5");
}

TEST_F(FrmPortSettingsOpen, ComposesTheSettingsOfEveryEntry) {
    const std::vector<std::array<const char*, 5>> cases{
        {"110 ", "Even ", "5", "1", "110,e,5,1"},    {"300 ", "Mark ", "6", "1.5", "300,m,6,1.5"},
        {"600 ", "None ", "7", "2", "600,n,7,2"},    {"14400 ", "Odd ", "8", "1", "14400,o,8,1"},
        {"56000", "Space", "8", "2", "56000,s,8,2"},
    };
    screen.Show();
    for (const auto& [rate, parity, dataBits, stopBits, composed] : cases) {
        Choose("COM1", rate, parity, dataBits, stopBits);
        boxes.Allow(Critical(Named() +
                                 " cannot be opened: it is no serial line, or does not take "
                                 "the settings " +
                                 composed + ".",
                             "Serial line"));
        screen.CmdOpenPort.Click();
        EXPECT_EQ(screen.LineSettings, composed);
        EXPECT_EQ(screen.CM.Settings(), composed);
    }
}

TEST_F(FrmPortSettingsOpen, OpensAnewWithOtherSettingsAtAnyTime) {
    ShowWithOpenPort();
    screen.CboBitsPerSecond.SetText("4800 ");
    screen.CmdOpenPort.Click();
    EXPECT_TRUE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.Settings(), "4800,n,8,1");
}

TEST_F(FrmPortSettingsOpen, LeavesTheLineClosedWhereThePortIsMissing) {
    ShowWithOpenPort();
    Choose("COM2", "1200 ", "Even ", "7", "2");
    boxes.Expect(Critical("Port 2 (/dev/no-such-line-2) cannot be opened: there is no such device. "
                          "Is the indicator's adapter plugged in?",
                          "Serial line"));
    screen.CmdOpenPort.Click();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.CommPort(), 2);
    EXPECT_EQ(screen.CM.Settings(), "1200,e,7,2");
}

TEST_F(FrmPortSettingsOpen, ClosesTheLineBeforeItLooksAtTheNumberOfThePort) {
    ShowWithOpenPort();
    screen.CboPortName.SetListIndex(-1);
    screen.CboParity.SetText("Even ");
    boxes.Expect(Critical("Type mismatch", "Quillane"));
    screen.CmdOpenPort.Click();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.Settings(), "2400,n,8,1") << "nothing behind the failure is done";
    EXPECT_EQ(screen.LineSettings, "2400,n,8,1");
}

TEST_F(FrmPortSettingsOpen, EndsTheLineWithTheScreen) {
    {
        FrmPortSettings first;
        first.Show();
        first.CmdOpenPort.Click();
        EXPECT_TRUE(first.CM.PortOpen());
        first.Unload();
    }
    ShowWithOpenPort();
}

// ---- the raw text ----

struct FrmPortSettingsRawText : SettingBench {
    FrmPortSettingsRawText() { ShowWithOpenPort(); }
};

TEST_F(FrmPortSettingsRawText, GrowsByWhatWasReceivedWithEachPress) {
    terminal.Write("+012540 kg\r\n");
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg<CR><LF>");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg<CR><LF>");
    terminal.Write("+0043");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg<CR><LF>+0043");
}

TEST_F(FrmPortSettingsRawText, TakesFiveLooksWithEachPress) {
    int writes = 0;
    screen.TxtRawWeight.Change = [&] {
        // What comes in the midst is taken by the next look.
        if (++writes < 5)
            terminal.Write(std::to_string(writes));
    };
    screen.CmdGetWeight.Click();
    EXPECT_EQ(writes, 5);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "1234");
}

TEST_F(FrmPortSettingsRawText, StandsBehindWhatTheOperatorLeftInTheBox) {
    ScreenDriver(screen).Click(screen.TxtRawWeight).Type("first: ");
    terminal.Write("+1");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "first: +1");
    ScreenDriver(screen)
        .Click(screen.TxtRawWeight)
        .Press(Qt::CTRL | Qt::Key_A)
        .Press(Qt::Key_Delete);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "") << "only the operator empties it";
}

TEST_F(FrmPortSettingsRawText, ShowsBytesThatCannotBeSeenAndGoesOn) {
    terminal.Write("\x02+1\0\x80\xFF\x03"s);
    screen.CmdGetWeight.Click();
    terminal.Write("2");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "<STX>+1<NUL><x80>\u00FF<ETX>2");
}

// A morning's presses: the box keeps it all and shows the end.
TEST_F(FrmPortSettingsRawText, KeepsEverythingThatCameInADay) {
    std::string all;
    for (int press = 0; press < 100; ++press) {
        const std::string piece = std::to_string(press) + std::string(1000, '7') + "\r";
        terminal.Write(piece);
        screen.CmdGetWeight.Click();
        all += piece.substr(0, piece.size() - 1) + "<CR>";
    }
    EXPECT_EQ(screen.TxtRawWeight.Text(), all);
}

TEST_F(FrmPortSettingsRawText, EndsTheProcessWhereThePortIsClosed) {
    const ProcessEnd end;
    screen.CM.SetPortOpen(false);
    boxes.Expect(Critical("Port 1 is closed: nothing can be read from it.", "Quillane"));
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

TEST_F(FrmPortSettingsRawText, EndsTheProcessWhereTheLineHasHungUp) {
    const ProcessEnd end;
    terminal.HangUp();
    boxes.Expect(Critical(HungUp().text, "Quillane"));
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

// ---- the try-out ----

struct FrmPortSettingsTryOut : SettingBench {
    FrmPortSettingsTryOut() { ShowWithOpenPort(); }

    void Choose(const char* direction, const char* length, int reversed) {
        screen.CboDirection.SetText(direction);
        screen.TxtDataFrom.SetText(length);
        screen.ChkIsReversed.SetValue(reversed);
    }
};

TEST_F(FrmPortSettingsTryOut, IsOnlyStartedByItsButton) {
    terminal.Write(frames);
    ScreenDriver(screen).Click(screen.CmdModifiedWeight);
    EXPECT_TRUE(screen.Timer.Enabled());
    EXPECT_EQ(screen.Timer.Interval(), 200);
    EXPECT_EQ(screen.TxtNotModified.Text(), "") << "nothing is read before the first tick";
    EXPECT_TRUE(WaitFor([&] { return screen.TxtNotModified.Text() == "001250"; }));
    screen.CmdModifiedWeight.Click();
    EXPECT_TRUE(screen.Timer.Enabled()) << "nothing stops it";
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
        // Leading zeros go before the reversal here, and stay on the weighment screen.
        {"Left", "6", 1, "\x02"s + "052100\x03\x02" + "052100\x03\x02" + "052100\x03",
         "052100/00125"},
        {"Left", "6", 1, "000120\r000120\r000120\r", "000120/021"},
        // A single digit is shown here, and never on the weighment screen.
        {"Right", "6", 0, "  7\r  7\r  7\r", "7/7"},
        // One or two numbers are none here, and read on the weighment screen.
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
    EXPECT_EQ(screen.TxtRawWeight.Text(), "") << "the try-out leaves the raw text alone";
}

TEST_F(FrmPortSettingsTryOut, TakesUpOtherSettingsAtTheNextTick) {
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
        EXPECT_EQ(screen.TxtModifiedWeight.Text(), "1250") << "a failure leaves the boxes alone";
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

// The same with real boxes and real keys: Enter answers the box, and the next one is a while away.
TEST_F(FrmPortSettingsTryOut, LeavesAMomentForAKeyBehindARealBox) {
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
