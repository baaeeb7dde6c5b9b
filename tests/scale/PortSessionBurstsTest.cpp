// An indicator that pauses between its frames, on a real line; only the clock is simulated.

#include "scale/SettingBench.h"
#include "scale/WeighingScreen.h"

#include <set>

namespace Quillane {
namespace {

using namespace std::chrono_literals;
using Testing::PortSessionTest;
using Testing::SettingBench;

/// The clock of the lines and the ports that are read in whole bursts, for one test.
struct PausingPort {
    explicit PausingPort(std::set<int> ports) {
        MSComm::SetWholeBursts([ports](int port) { return ports.contains(port); });
        MSComm::SetClock([this] { return now; });
    }
    ~PausingPort() {
        MSComm::SetWholeBursts({});
        MSComm::SetClock({});
    }

    std::chrono::steady_clock::time_point now{};
};

constexpr std::string_view frame = "+012540 kg\r\n";

class PortSessionBursts : public PortSessionTest {
protected:
    /// All readings that are shown while frames arrive, with a tick at every position of a frame
    /// and in the pauses.
    std::set<std::string> ShownOf(std::set<int> wholeBursts) {
        PausingPort port(std::move(wholeBursts));
        screen.CM.SetPortOpen(true);
        std::set<std::string> shown;
        const auto look = [&](std::string_view bytes, std::chrono::milliseconds later) {
            port.now += later;
            shown.insert(Look(bytes));
        };
        look("", 250ms);
        for (std::size_t cut = 1; cut < frame.size(); ++cut) {
            look(frame.substr(0, cut), 30ms);
            look(frame.substr(cut), 30ms);
            look("", 250ms);
        }
        screen.CM.SetPortOpen(false);
        return shown;
    }
};

TEST_F(PortSessionBursts, ShowOnlyWholeWeightsForAnyTimingOfTheTicks) {
    EXPECT_EQ(ShownOf({1}), (std::set<std::string>{"777", "12540"})) << "777 was shown before";
}

TEST_F(PortSessionBursts, ShowCutWeightsIfThePortIsNotReadInBursts) {
    EXPECT_EQ(ShownOf({2}), (std::set<std::string>{"1", "12", "125", "1254", "12540", "2540", "540",
                                                   "40", "777"}));
}

class FrmPortSettingsBursts : public SettingBench {};

TEST_F(FrmPortSettingsBursts, AreTestedThreeAtATime) {
    PausingPort port({1});
    ShowWithOpenPort();
    screen.CboDirection.SetText("Right");
    screen.TxtDataFrom.SetText("6");
    for (int burst = 0; burst < 3; ++burst) {
        port.now += 250ms;
        EXPECT_EQ(TryOut(""), "/0") << burst;
        EXPECT_EQ(TryOut(frame.substr(0, 5)), "/0") << burst;
        port.now += 30ms;
        EXPECT_EQ(TryOut(frame.substr(5)), "/0") << burst;
    }
    port.now += 250ms;
    EXPECT_EQ(TryOut(""), "012540/12540");
    EXPECT_EQ(TryOut(""), "/0");
}

TEST_F(FrmPortSettingsBursts, FillTheRawTextWithWholeBursts) {
    PausingPort port({1});
    ShowWithOpenPort();
    for (int burst = 0; burst < 3; ++burst) {
        port.now += 250ms;
        screen.CmdGetWeight.Click();
        terminal.Write(frame);
        screen.CmdGetWeight.Click();
        EXPECT_EQ(screen.TxtRawWeight.Text(), "") << burst;
    }
    port.now += 250ms;
    screen.CmdGetWeight.Click();
    EXPECT_EQ(screen.TxtRawWeight.Text(), "+012540 kg\r\n+012540 kg\r\n+012540 kg\r\n");
}

} // namespace
} // namespace Quillane
