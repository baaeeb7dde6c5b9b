// The line during an operator's work: silence, noise, a disconnected cable, a typed weight.

#include "Station.h"
#include "platform/runtime/Numbers.h"

namespace Quillane::Testing {
namespace {

class LineDuringWork : public Station {
protected:
    static void GoToGrossWeight(Operator& by) {
        by.Press({"Return", "Return", "Return", "Return", "Return"});
        by.UntilActive("CmdGrossWeight");
    }
    std::string HungUp() const {
        return "Port 1 (" + folder->File("scale") +
               ") is closed: the line was disconnected. Check the cable.";
    }
};

TEST_F(LineDuringWork, KeepsTheOldReadingWhileItIsSilent) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        GoToGrossWeight(by);
        by.UntilReading(12540);
        Indicate(by, "silence");
        Indicate(by, "weight 4320");
        by.Press({"space"});
        by.UntilActive("CmdTareWeight");
        EXPECT_EQ(by.See([&] { return screen.TxtInitialGrossWeight.Text(); }), "12540");
        EXPECT_EQ(by.See([&] { return Val(screen.TxtWeight.Text()); }), 12540);
        Indicate(by, "talk");
        by.UntilReading(4320);
        EXPECT_TRUE(by.See([this] { return boxes->All().empty(); }));
    });
}

TEST_F(LineDuringWork, NoiseDoesNotDisturbTyping) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        Indicate(by, "baud 115200");
        Indicate(by, "noise on");
        Indicate(by, "cut on");
        by.Click(screen.TxtVehicleNo);
        for (int times = 0; times < 20; ++times) {
            by.Type("LEA-45");
            by.Until("the number", [&] { return screen.TxtVehicleNo.Text() == "LEA-45"; });
            by.Press({"ctrl+a", "Delete"});
        }
        Indicate(by, "cut off");
        Indicate(by, "noise off");
        Indicate(by, "weight 4320");
        by.UntilReading(4320);
    });
}

TEST_F(LineDuringWork, ReportsADisconnectedCableOneBoxAtATimeUntilManualWeightStopsIt) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        GoToGrossWeight(by);
        by.UntilReading(12540);
        Indicate(by, "hangup");
        for (int times = 0; times < 3; ++times)
            by.Answer("Serial line", HungUp(), {"Return"});
        // Between two boxes there is enough time to reach the check box.
        by.PastLineBoxes([&] { by.Click(screen.ChkManualWeight); }, "Manual Weight",
                         [&] { return screen.ChkManualWeight.Value() == 1; });
        EXPECT_FALSE(by.See([&] { return screen.Timer.Enabled(); }));
        EXPECT_EQ(by.See([&] { return Val(screen.TxtWeight.Text()); }), 12540);
        by.ForgetBoxes();

        by.Press({"Tab"});
        by.UntilActive("TxtWeight");
        by.Press({"ctrl+a"});
        by.Type("7000");
        by.Until("the typed weight", [&] { return screen.TxtWeight.Text() == "7000"; });
        by.Picture("typed-weight");
        by.Click(screen.CmdGrossWeight);
        by.UntilActive("CmdTareWeight");
        EXPECT_EQ(by.See([&] { return screen.TxtInitialGrossWeight.Text(); }), "7000");

        // The cable is connected again: the next weighment opens the line again.
        Indicate(by, "connect");
        by.Press({"ctrl+l"});
        by.Answer("Alert", "Are you sure to clear the entries?", {"Return"});
        by.UntilReading(12540);
        EXPECT_EQ(by.See([&] { return screen.ChkManualWeight.Value(); }), 0);
        EXPECT_TRUE(by.See([&] { return screen.TxtWeight.Locked(); }));
    });
    EXPECT_EQ(boxes->MostAtOnce(), 1U);
}

// The timer ticks every 300 ms; the toolkit's timers may be 5 per cent early.
TEST_F(LineDuringWork, AWholeIntervalPassesBetweenTwoBoxes) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.ClickInto(screen.TxtDriverName);
        by.UntilReading(12540);
        Indicate(by, "hangup");
        std::string typed;
        for (const char* pause : {"0", "5", "0", "5", "0", "5"}) {
            by.Until("the line's box", [this] { return boxes->CountUp() == 1; });
            by.WithoutLooking({"key", "--delay", pause, "Return", "a", "b", "c"});
            typed += "abc";
            by.Until("the letters", [&] { return screen.TxtDriverName.Text() == typed; });
        }
        EXPECT_GE(by.See([this] { return boxes->ShortestPause(); }), 285);
        Indicate(by, "connect");
        by.PastLineBoxes(
            [&] { by.Press({"ctrl+l"}); }, "the question before clearing",
            [this] { return boxes->All().back().text == "Are you sure to clear the entries?"; });
        by.Answer("Alert", "Are you sure to clear the entries?", {"Return"});
        by.UntilReading(12540);
    });
}

TEST_F(LineDuringWork, LiveWeightCannotBeTyped) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        by.ClickInto(screen.TxtWeight);
        by.Type("7");
        by.Until("the changed screen", [&] { return screen.BtnSave.Enabled(); });
        by.UntilReading(12540);
    });
}

} // namespace
} // namespace Quillane::Testing
