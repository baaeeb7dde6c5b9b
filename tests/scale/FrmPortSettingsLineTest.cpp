#include "scale/SettingBench.h"

#include "platform/forms/core/Text.h"
#include "support/ProcessEnd.h"

namespace Quillane {
namespace {

using Testing::Critical;
using Testing::ProcessEnd;
using Testing::ScreenDriver;
using Testing::SettingBench;

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
        boxes.Allow(Critical(
            Named() +
                " cannot be opened: it is not a serial line, or does not support the settings " +
                composed + ".",
            "Serial line"));
        screen.CmdOpenPort.Click();
        EXPECT_EQ(screen.LineSettings, composed);
        EXPECT_EQ(screen.CM.Settings(), composed);
    }
}

TEST_F(FrmPortSettingsOpen, OpensAgainWithOtherSettingsAtAnyTime) {
    ShowWithOpenPort();
    screen.CboBitsPerSecond.SetText("4800 ");
    screen.CmdOpenPort.Click();
    EXPECT_TRUE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.Settings(), "4800,n,8,1");
}

TEST_F(FrmPortSettingsOpen, LeavesTheLineClosedIfThePortIsMissing) {
    ShowWithOpenPort();
    Choose("COM2", "1200 ", "Even ", "7", "2");
    boxes.Expect(Critical("Port 2 (/dev/no-such-line-2) cannot be opened: the device does not "
                          "exist. Check that the indicator's adapter is plugged in.",
                          "Serial line"));
    screen.CmdOpenPort.Click();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.CommPort(), 2);
    EXPECT_EQ(screen.CM.Settings(), "1200,e,7,2");
}

TEST_F(FrmPortSettingsOpen, ClosesTheLineBeforeItReadsThePortNumber) {
    ShowWithOpenPort();
    screen.CboPortName.SetListIndex(-1);
    screen.CboParity.SetText("Even ");
    boxes.Expect(Critical("Type mismatch", "Quillane"));
    screen.CmdOpenPort.Click();
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.Settings(), "2400,n,8,1") << "nothing is done after the failure";
    EXPECT_EQ(screen.LineSettings, "2400,n,8,1");
}

TEST_F(FrmPortSettingsOpen, ClosesTheLineWithTheScreen) {
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

TEST_F(FrmPortSettingsRawText, GetsTheReceivedTextAppendedWithEachPress) {
    terminal.Write("+012540 kg\r\n");
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg\r\n");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg\r\n");
    terminal.Write("+0043");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg\r\n+0043");
}

TEST_F(FrmPortSettingsRawText, ReadsFiveTimesWithEachPress) {
    int writes = 0;
    screen.TxtRawWeight.Change = [&] {
        // Bytes that arrive in between are read by the next call.
        if (++writes < 5)
            terminal.Write(std::to_string(writes));
    };
    screen.CmdGetWeight.Click();
    EXPECT_EQ(writes, 5);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "1234");
}

TEST_F(FrmPortSettingsRawText, IsAppendedToTheTextLeftByTheOperator) {
    ScreenDriver(screen).Click(screen.TxtRawWeight).Type("first: ");
    terminal.Write("+1");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "first: +1");
    ScreenDriver(screen)
        .Click(screen.TxtRawWeight)
        .Press(Qt::CTRL | Qt::Key_A)
        .Press(Qt::Key_Delete);
    EXPECT_EQ(screen.TxtRawWeight.Text(), "") << "only the operator deletes it";
}

TEST_F(FrmPortSettingsRawText, HoldsEveryByteThatWasReceived) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    terminal.Write(all);
    screen.CmdGetWeight.Click();
    terminal.Write("2");
    screen.CmdGetWeight.Click();
    EXPECT_EQ(ToQt(screen.TxtRawWeight.Text()), QString::fromLatin1(all + "2"));
}

TEST_F(FrmPortSettingsRawText, IsPaintedWithTheNamesOfInvisibleBytes) {
    const auto picture = [&](std::string_view bytes) {
        screen.TxtRawWeight.SetText("");
        terminal.Write(bytes);
        screen.CmdGetWeight.Click();
        return screen.TxtRawWeight.Widget().grab().toImage();
    };
    EXPECT_NE(picture("\x02+1"), picture("\x03+1"));
    EXPECT_NE(picture("\r1"), picture(" 1"));
}

// The presses of a whole morning: the box keeps all text and shows its end.
TEST_F(FrmPortSettingsRawText, KeepsEverythingReceivedInADay) {
    std::string all;
    for (int press = 0; press < 100; ++press) {
        const std::string piece = std::to_string(press) + std::string(1000, '7') + "\r";
        terminal.Write(piece);
        screen.CmdGetWeight.Click();
        all += piece;
    }
    EXPECT_EQ(screen.TxtRawWeight.Text(), all);
    QWidget& box = screen.TxtRawWeight.Widget();
    box.grab(); // painting scrolls the text into view
    const QRect caret = box.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_TRUE(box.rect().intersects(caret)) << "the end is visible";
    EXPECT_EQ(box.inputMethodQuery(Qt::ImAbsolutePosition).toInt(), static_cast<int>(all.size()));
}

TEST_F(FrmPortSettingsRawText, EndsTheProcessIfThePortIsClosed) {
    const ProcessEnd end;
    screen.CM.SetPortOpen(false);
    boxes.Expect(Critical("Port 1 is closed: nothing can be read from it.", "Quillane"));
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

TEST_F(FrmPortSettingsRawText, EndsTheProcessIfTheLineHasHungUp) {
    const ProcessEnd end;
    terminal.HangUp();
    boxes.Expect(Critical(HungUp().text, "Quillane"));
    ScreenDriver(screen).Click(screen.CmdGetWeight);
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

} // namespace
} // namespace Quillane
