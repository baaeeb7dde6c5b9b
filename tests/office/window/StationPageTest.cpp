#include "office/window/StationPage.h"

#include "PageTest.h"

#include "office/window/PortDialog.h"
#include "platform/comm/MSComm.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "support/ScreenDriver.h"

namespace Quillane::Office {
namespace {

class OfficeStation : public PageTest {
protected:
    OfficeStation() {
        MSComm::SetDevices([](int port) { return TheStation().PortDevice(port); });
    }
    ~OfficeStation() override {
        MSComm::SetDevices({});
        TheStation() = {};
    }

    void Open() {
        page = new StationPage(session);
        page->Ports()->FindDevices = [] {
            return std::vector<SerialDevice>{{"/dev/serial/by-id/usb-FTDI-0", "/dev/ttyUSB0",
                                              "FT232R USB UART, FTDI",
                                              "May be opened (group dialout)"}};
        };
        ShowPage(page);
    }
    std::string Stored(const std::string& key) {
        return database.Text("Select RegistryValue From PortSettings Where RegistryKey = '" + key +
                             "'");
    }

    StationPage* page = nullptr;
};

TEST_F(OfficeStation, PortIsGivenItsDeviceWithCommentsKept) {
    database.folder.Write("Station.ini", "; gate\n[Ports]\n1=/dev/ttyS0\n");
    Open();
    {
        const Visit visit([](QDialog& dialog) {
            Press(dialog, Qt::ALT | Qt::Key_P);
            Press(dialog, Qt::CTRL | Qt::Key_A);
            Type(dialog, "12");
            Press(dialog, Qt::ALT | Qt::Key_D);
            Press(dialog, Qt::CTRL | Qt::Key_A);
            Type(dialog, "/dev/ttyUSB0");
            LookAt(dialog, "port-form");
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        Press(window, Qt::CTRL | Qt::Key_D);
    }
    EXPECT_EQ(database.folder.Read("Station.ini"),
              "; gate\n[Ports]\n1=/dev/ttyS0\n12=/dev/ttyUSB0\n");
    LookAt(window, "station");
}

TEST_F(OfficeStation, EntryIsRemovedAndBurstsAreToggled) {
    database.folder.Write("Station.ini", "[Ports]\n1=/dev/ttyUSB0\n");
    Open();
    Press(window, Qt::CTRL | Qt::Key_B);
    EXPECT_TRUE(StationFile::Read(database.folder.File("Station.ini")).WholeBursts.contains(1));
    const Answers answers({"Remove"});
    Press(window, Qt::Key_Delete);
    const StationFile station = StationFile::Read(database.folder.File("Station.ini"));
    EXPECT_TRUE(station.Ports.empty());
    EXPECT_TRUE(station.WholeBursts.empty());
}

TEST_F(OfficeStation, PortAboveTwoIsSavedForTheStations) {
    Open();
    page->Line()->Port()->setFocus();
    Press(window, Qt::CTRL | Qt::Key_A);
    Type(window, "12");
    page->Line()->Length()->setFocus();
    Press(window, Qt::CTRL | Qt::Key_A);
    Type(window, "5");
    EXPECT_EQ(page->Unsaved(), "The line's settings have");
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Stored("PortName"), "12");
    EXPECT_EQ(Stored("DataLength"), "5");
    EXPECT_EQ(page->Unsaved(), "");
}

TEST_F(OfficeStation, LengthOfNoDigitsIsSavedOnlyAfterAQuestion) {
    Open();
    const std::string before = Stored("DataLength");
    page->Line()->Length()->setFocus();
    Press(window, Qt::CTRL | Qt::Key_A);
    Type(window, "0");
    const Answers answers({"Cancel"});
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Stored("DataLength"), before);
}

TEST_F(OfficeStation, SecondOfficeSeesBothSettings) {
    Open();
    page->Line()->Length()->setValue(7);
    database.Run("Update PortSettings Set RegistryValue = '4' Where RegistryKey = 'DataLength'");
    const Answers answers({"OK"});
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_NE(answers.Texts().at(0).find("it is now \"4\", your entry is \"7\""), std::string::npos)
        << answers.Texts().at(0);
    EXPECT_EQ(Stored("DataLength"), "4");
}

TEST_F(OfficeStation, LiveViewShowsWhatTheLineSendsAndWhatIsReadOfIt) {
    Testing::PseudoTerminal indicator;
    database.folder.Write("Station.ini", "[Ports]\n7=" + indicator.Device() + "\n");
    Open();
    page->Line()->Port()->setValue(7);
    page->Line()->Direction()->setCurrentText("Right");
    page->Line()->Length()->setValue(5);
    page->Line()->Reversed()->setChecked(false);
    Press(window, Qt::Key_F9);
    ASSERT_TRUE(page->Line()->IsListening()) << FromQt(page->Line()->Fault());
    indicator.Write("\x02"
                    "0012540\r0012540\r0012540\r");
    EXPECT_TRUE(Testing::WaitFor([&] { return page->Line()->Readings() == "12540 kg / 12540 kg"; }))
        << FromQt(page->Line()->Readings());
    EXPECT_TRUE(page->Line()->RawText().contains("<STX>0012540<CR>"));
    LookAt(window, "station-live");
    Press(window, Qt::Key_F9);
    EXPECT_FALSE(page->Line()->IsListening());
}

TEST_F(OfficeStation, LineIsClosedWhenThePageIsLeft) {
    const Testing::PseudoTerminal indicator;
    database.folder.Write("Station.ini", "[Ports]\n7=" + indicator.Device() + "\n");
    Open();
    page->Line()->Port()->setValue(7);
    Press(window, Qt::Key_F9);
    ASSERT_TRUE(page->Line()->IsListening());
    page->hide();
    EXPECT_FALSE(page->Line()->IsListening());
}

TEST_F(OfficeStation, LineThatCannotBeOpenedSaysWhy) {
    database.folder.Write("Station.ini", "[Ports]\n7=/dev/no-such-line\n");
    Open();
    page->Line()->Port()->setValue(7);
    Press(window, Qt::Key_F9);
    EXPECT_TRUE(page->Line()->Fault().contains("/dev/no-such-line"));
    EXPECT_FALSE(page->Line()->IsListening());
}

TEST_F(OfficeStation, HungUpLineStopsTheViewWithTheReason) {
    Testing::PseudoTerminal indicator;
    database.folder.Write("Station.ini", "[Ports]\n7=" + indicator.Device() + "\n");
    Open();
    page->Line()->Port()->setValue(7);
    Press(window, Qt::Key_F9);
    indicator.HangUp();
    EXPECT_TRUE(Testing::WaitFor([&] { return !page->Line()->IsListening(); }));
    EXPECT_FALSE(page->Line()->Fault().isEmpty());
}

} // namespace
} // namespace Quillane::Office
