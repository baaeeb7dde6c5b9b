// The bench with an indicator on the line. The weighment screen reads with the settings that are
// determined here.

#include "Station.h"
#include "scale/FrmPortSettings.h"
#include "shell/Desktop.h"

namespace Quillane::Testing {
namespace {

class BenchByHand : public Station {
protected:
    static FrmPortSettings& Open(Operator& by) {
        by.UntilInFront("Veltrane: Quillane");
        by.Press({"Tab", "space"});
        by.UntilInFront("Port Testing");
        by.UntilActive("CboPortName");
        return by.Shown<FrmPortSettings>();
    }
    static void OpenPort(Operator& by) {
        by.Press({"Tab", "Tab", "Tab", "Tab", "Tab"});
        by.UntilActive("CmdOpenPort");
        by.Press({"space"});
    }
    static void TryOut(Operator& by, const FrmPortSettings& bench, const std::string& weight) {
        by.UntilActive("CmdModifiedWeight");
        by.Press({"space"});
        by.Until("the weight " + weight, [&] { return bench.TxtModifiedWeight.Text() == weight; });
    }
    std::vector<Row> Settings() const {
        return Stored("Select RegistryValue From PortSettings Order By RegistryKey");
    }
    std::string HungUp() const {
        return "Port 1 (" + folder->File("scale") +
               ") is closed: the line was disconnected. Check the cable.";
    }
};

// With the stored settings, the checksum after the weight would be read.
TEST_F(BenchByHand, SettingsFoundByKeysAreUsedByTheWeighment) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        Indicate(by, "layout checked");
        FrmPortSettings& bench = Open(by);
        OpenPort(by);
        by.Press({"Tab"});
        by.UntilActive("CmdGetWeight");
        const auto hasFrame = [&] {
            return bench.TxtRawWeight.Text().find("\x02+012540019\x03") != std::string::npos;
        };
        for (int times = 0; times < 500 && !by.See(hasFrame); ++times)
            by.Press({"space"});
        EXPECT_TRUE(by.See(hasFrame));
        by.Press({"Tab", "Tab"});
        by.UntilActive("TxtDataFrom");
        by.Type("6");
        by.Press({"Tab", "Tab", "Tab"});
        TryOut(by, bench, "12540");
        EXPECT_EQ(by.See([&] { return bench.TxtNotModified.Text(); }), "012540019");
        by.Picture("bench");
        by.Press({"Tab", "Tab", "Tab"});
        by.UntilActive("CmdSave");
        by.Press({"space"});
        by.Answer("Confirmation", "Settings Updated Successfully", {"Return"});
        by.Press({"Tab"});
        by.UntilActive("CmdClose");
        by.Press({"Return"});
        by.UntilInFront("Veltrane: Quillane");
        by.Press({"shift+Tab"});
        by.OpenWeighment();
        by.UntilReading(12540);
    });
    EXPECT_EQ(Settings(), (std::vector<Row>{{"Left"}, {"6"}, {"0"}, {"1"}, {"2400,n,8,1"}}));
    EXPECT_EQ(boxes->All().size(), 1U);
}

TEST_F(BenchByHand, ChangedSettingsTakeEffectDuringTheTest) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        Indicate(by, "layout equals-reversed");
        FrmPortSettings& bench = Open(by);
        OpenPort(by);
        by.Click(bench.CmdModifiedWeight);
        by.ClickInto(bench.TxtDataFrom);
        by.Type("7");
        by.Until("the digits as they come",
                 [&] { return bench.TxtModifiedWeight.Text() == "452100"; });
        by.Click(bench.ChkIsReversed);
        by.Until("the digits turned", [&] { return bench.TxtModifiedWeight.Text() == "001254"; });
        EXPECT_EQ(by.See([&] { return bench.TxtNotModified.Text(); }), "04521000");
    });
    EXPECT_TRUE(boxes->All().empty());
}

TEST_F(BenchByHand, LostLineIsReportedUntilThePortIsOpenedAgain) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        FrmPortSettings& bench = Open(by);
        OpenPort(by);
        by.Click(bench.TxtDataFrom);
        by.Type("6");
        by.Press({"Tab", "Tab", "Tab"});
        TryOut(by, bench, "12540");
        Indicate(by, "hangup");
        by.Answer("Serial line", HungUp(), {"Return"});
        by.Answer("Serial line", HungUp(), {"Return"});
        Indicate(by, "connect");
        by.PastLineBoxes([&] { by.Click(bench.CmdOpenPort); }, "an open port",
                         [&] { return bench.CM.PortOpen(); });
        by.ForgetBoxes();
        Indicate(by, "weight 4320");
        by.Until("the weight", [&] { return bench.TxtModifiedWeight.Text() == "4320"; });
    });
    EXPECT_EQ(boxes->MostAtOnce(), 1U);
}

TEST_F(BenchByHand, GetWeightOnAClosedPortEndsTheProgram) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        FrmPortSettings& bench = Open(by);
        by.Click(bench.CmdGetWeight);
        by.Answer("Quillane", "Port 1 is closed: nothing can be read from it.", {"Return"});
        by.Until("the end", [this] { return !end->Codes().empty(); });
    });
    EXPECT_NE(end->Codes().front(), 0);
}

} // namespace
} // namespace Quillane::Testing
