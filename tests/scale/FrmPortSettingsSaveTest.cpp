#include "scale/SettingBench.h"

namespace Quillane {
namespace {

using Testing::Critical;
using Testing::ScreenDriver;
using Testing::SettingBench;
using Testing::WaitFor;

const Box updated{.text = "Settings Updated Successfully",
                  .title = "Confirmation",
                  .icon = BoxIcon::Information,
                  .buttons = BoxButtons::Ok};

struct FrmPortSettingsSave : SettingBench {
    FrmPortSettingsSave() { screen.Show(); }

    void Choose() {
        screen.CboPortName.SetText("COM2");
        screen.CboBitsPerSecond.SetText("19200 ");
        screen.CboDataBits.SetText("7");
        screen.CboParity.SetText("Even ");
        screen.CboStopBits.SetText("1.5");
        screen.CboDirection.SetText("Right");
        screen.TxtDataFrom.SetText("6");
        screen.ChkIsReversed.SetValue(1);
    }
    std::string Save() {
        boxes.Expect(updated);
        ScreenDriver(screen).Click(screen.CmdSave);
        return Stored();
    }
};

TEST_F(FrmPortSettingsSave, RunsFiveStatementsInTheirOrderAndNoTransaction) {
    Choose();
    boxes.Expect(updated, BoxAnswer::Ok, [&] {
        EXPECT_EQ(database.statements,
                  (std::vector<std::string>{
                      "Update PortSettings set RegistryValue='2' where registrykey = 'PortName'",
                      "Update PortSettings set RegistryValue='19200,e,7,1.5' where registrykey = "
                      "'PortSettings'",
                      "Update PortSettings set RegistryValue='Right' where registrykey = "
                      "'DataDirection'",
                      "Update PortSettings set RegistryValue='6' where registrykey = 'DataLength'",
                      "Update PortSettings set RegistryValue='1' where registrykey = "
                      "'IsReversed'"}));
    });
    ScreenDriver(screen).Click(screen.CmdSave);
    EXPECT_EQ(boxes.Remaining(), 0u);
    EXPECT_EQ(database.statements.size(), 5u) << "no statement runs after the box";
    EXPECT_EQ(Stored(), "2 19200,e,7,1.5 Right 6 1");
    EXPECT_EQ(screen.LineSettings, "19200,e,7,1.5");
}

TEST_F(FrmPortSettingsSave, OverwritesTheStoredSettingsWithTheDefaultsIfNothingWasChosen) {
    EXPECT_EQ(Save(), "1 2400,n,8,1 Left 0 0");
}

TEST_F(FrmPortSettingsSave, StoresTheNumberThatTheLengthReadsAs) {
    for (const auto& [typed, stored] :
         {std::pair("", "0"), std::pair("7", "7"), std::pair("x", "0"), std::pair("-", "0")}) {
        screen.TxtDataFrom.SetText(typed);
        EXPECT_EQ(Save(), "1 2400,n,8,1 Left " + std::string(stored) + " 0") << typed;
    }
}

TEST_F(FrmPortSettingsSave, StaysOpenAndTouchesNeitherTheLineNorTheBoxes) {
    Choose();
    Save();
    EXPECT_TRUE(screen.IsLoaded());
    EXPECT_FALSE(screen.CM.PortOpen());
    EXPECT_EQ(screen.CM.CommPort(), 1);
    EXPECT_EQ(screen.CM.Settings(), "2400,n,8,1");
    EXPECT_FALSE(screen.Timer.Enabled());
    EXPECT_EQ(screen.CboParity.Text(), "Even ");
    EXPECT_EQ(screen.TxtDataFrom.Text(), "6");
}

TEST_F(FrmPortSettingsSave, KeepsTheTestRunning) {
    screen.CmdOpenPort.Click();
    screen.CmdModifiedWeight.Click();
    EXPECT_EQ(Save(), "1 2400,n,8,1 Left 0 0");
    EXPECT_TRUE(screen.CM.PortOpen());
    terminal.Write("1 250 1");
    EXPECT_TRUE(WaitFor([&] { return screen.TxtNotModified.Text() == "250"; }));
}

TEST_F(FrmPortSettingsSave, ReportsSuccessAlsoIfARowIsMissing) {
    database.Run("Delete From PortSettings Where RegistryKey = 'DataLength'");
    database.Run("Insert Into PortSettings (RegistryKey, RegistryValue) Values ('Spare', 'kept')");
    Choose();
    boxes.Expect(updated);
    screen.CmdSave.Click();
    EXPECT_EQ(Con->Execute("Select Count(*) from PortSettings").Fields(0).Text(), "5");
    EXPECT_EQ(Con->Execute("Select RegistryValue from PortSettings where RegistryKey = 'Spare'")
                  .Fields(0)
                  .Text(),
              "kept");
}

TEST_F(FrmPortSettingsSave, KeepsTheRowsThatWereStoredBeforeAFailure) {
    database.Refuse(
        {"UPDATE", "PortSettings", "the row is in use", "RegistryKey = 'DataDirection'"});
    const std::string before = Stored();
    database.statements.clear();
    Choose();
    boxes.Expect(Critical(EngineWords("the row is in use"), "Database"));
    screen.CmdSave.Click();
    EXPECT_EQ(database.statements.size(), 3u) << "nothing runs after the failure";
    EXPECT_EQ(before, "1 9600,n,8,1 Right 6 0");
    EXPECT_EQ(Stored(), "2 19200,e,7,1.5 Right 6 0");
    database.AcceptAgain();
    EXPECT_EQ(Save(), "2 19200,e,7,1.5 Right 6 1") << "the next save is complete";
}

TEST_F(FrmPortSettingsSave, ReportsAMissingTable) {
    database.Run("Drop Table PortSettings");
    boxes.Expect(Critical(EngineWords("no such table: PortSettings"), "Database"));
    screen.CmdSave.Click();
    EXPECT_TRUE(screen.IsLoaded());
}

} // namespace
} // namespace Quillane
