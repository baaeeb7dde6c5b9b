// The scale setting screen, opened from the start screen, and the use of the saved settings by the
// weighment screen.

#include "shell/Desktop.h"

#include "data/CompanyProfile.h"
#include "platform/comm/PseudoTerminal.h"
#include "scale/FrmPortSettings.h"
#include "signin/UserLogin.h"
#include "station/OpenedDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"
#include "weighment/FrmWeighment.h"

#include <QWindow>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::PseudoTerminal;
using Testing::ScreenDriver;
using Testing::VisitModal;
using Testing::WaitFor;

/// The start screen of a signed-in user, and an indicator on each of the ports 1 and 2.
class ScaleSetting : public testing::Test {
protected:
    ScaleSetting() {
        MSComm::SetDevices(
            [this](int port) { return port == 1 ? first.Device() : second.Device(); });
        UserLogin->SetConnection(*Con);
        CompanyProfile->SetConnection(*Con);
        CompanyProfile->Load();
        UserLogin->SignIn("ali", "wheat");
        desktop.Show();
    }
    ~ScaleSetting() override {
        UserLogin.Release();
        CompanyProfile.Release();
        MSComm::SetDevices({});
    }

    void VisitBench(const std::function<void(FrmPortSettings&)>& act) {
        const VisitModal visit([&](Screen& screen) {
            act(dynamic_cast<FrmPortSettings&>(screen));
            ScreenDriver(screen).Click(ScreenDriver(screen).Named("CmdClose"));
        });
        ScreenDriver(desktop).Click(desktop.CmdScaleSetting);
    }
    void VisitWeighment(const std::function<void(FrmWeighment&)>& act) {
        const VisitModal visit([&](Screen& screen) {
            act(dynamic_cast<FrmWeighment&>(screen));
            screen.Unload();
        });
        ScreenDriver(desktop).Click(desktop.BtnWeighment);
    }
    void Save(FrmPortSettings& bench) {
        boxes.Expect({.text = "Settings Updated Successfully",
                      .title = "Confirmation",
                      .icon = BoxIcon::Information,
                      .buttons = BoxButtons::Ok});
        ScreenDriver(bench).Click(bench.CmdSave);
    }

    OpenedDatabase database;
    PseudoTerminal first, second;
    BoxAnswers boxes;
    Desktop desktop;
};

TEST_F(ScaleSetting, ScreenIsModal) {
    VisitBench([&](FrmPortSettings& bench) {
        EXPECT_EQ(bench.windowTitle(), "Port Testing");
        EXPECT_TRUE(bench.isModal());
        EXPECT_EQ(bench.windowHandle()->transientParent(), desktop.windowHandle());
    });
    EXPECT_TRUE(desktop.IsLoaded());
    EXPECT_EQ(desktop.ActiveControlName(), "CmdScaleSetting");
}

TEST_F(ScaleSetting, ScreenStartsWithDefaultsAndAClosedLineEachTime) {
    VisitBench([&](FrmPortSettings& bench) {
        ScreenDriver(bench).Click(bench.CmdOpenPort);
        EXPECT_TRUE(bench.CM.PortOpen());
        bench.CboDirection.SetText("Right");
        bench.TxtDataFrom.SetText("6");
        bench.CmdModifiedWeight.Click();
    });
    VisitBench([&](FrmPortSettings& bench) {
        EXPECT_FALSE(bench.CM.PortOpen());
        EXPECT_FALSE(bench.Timer.Enabled());
        EXPECT_EQ(bench.CboDirection.Text(), "Left");
        EXPECT_EQ(bench.TxtDataFrom.Text(), "");
        ScreenDriver(bench).Click(bench.CmdOpenPort);
        EXPECT_TRUE(bench.CM.PortOpen()) << "the line was released before";
    });
}

TEST_F(ScaleSetting, NextNewWeighmentReadsTheSettings) {
    VisitBench([&](FrmPortSettings& bench) {
        bench.CboPortName.SetText("COM2");
        bench.CboBitsPerSecond.SetText("4800 ");
        bench.CboParity.SetText("Odd ");
        bench.CboDirection.SetText("Left");
        bench.TxtDataFrom.SetText("6");
        ScreenDriver(bench).Click(bench.ChkIsReversed);
        Save(bench);
    });
    VisitWeighment([&](FrmWeighment& weighment) {
        EXPECT_TRUE(weighment.CM.PortOpen());
        EXPECT_EQ(weighment.CM.CommPort(), 2);
        EXPECT_EQ(weighment.CM.Settings(), "4800,o,8,1");
        second.Write("=0452100=0452100=0452100=");
        EXPECT_TRUE(WaitFor([&] { return weighment.TxtWeight.Text() == "012540"; }));
    });
}

TEST_F(ScaleSetting, LineIsReleasedForTheWeighmentScreen) {
    VisitBench([&](FrmPortSettings& bench) {
        ScreenDriver(bench).Click(bench.CmdOpenPort);
        bench.CboDirection.SetText("Right");
        bench.TxtDataFrom.SetText("6");
        Save(bench);
    });
    VisitWeighment([&](FrmWeighment& weighment) {
        first.Write("+012540 kg\r\n+012540 kg\r\n+012540 kg\r\n");
        EXPECT_TRUE(WaitFor([&] { return weighment.TxtWeight.Text() == "12540"; }));
    });
}

// An empty length is stored as 0, without a message.
TEST_F(ScaleSetting, EmptyLengthStopsTheLiveWeight) {
    VisitBench([&](FrmPortSettings& bench) { Save(bench); });
    VisitWeighment([&](FrmWeighment& weighment) {
        const std::string shown = weighment.TxtWeight.Text();
        first.Write("+012540 kg\r\n+012540 kg\r\n+012540 kg\r\n");
        int looks = 0;
        weighment.Timer.Tick = [&looks, look = weighment.Timer.Tick] {
            look();
            ++looks;
        };
        EXPECT_TRUE(WaitFor([&] { return looks == 2; }));
        EXPECT_EQ(weighment.TxtWeight.Text(), shown);
    });
}

} // namespace
} // namespace Quillane
