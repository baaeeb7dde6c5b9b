// A port that is read in whole bursts, on a real line; only the clock is simulated.

#include "platform/comm/MSComm.h"

#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Screen.h"
#include "platform/runtime/Failure.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using namespace std::chrono_literals;
using Testing::PseudoTerminal;
using Testing::WaitFor;

class MSCommBurstsTest : public testing::Test {
protected:
    MSCommBurstsTest() {
        MSComm::SetDevices([this](int port) { return port == 1 ? terminal : second; });
        MSComm::SetWholeBursts([](int port) { return port == 1; });
        MSComm::SetClock([this] { return now; });
    }
    ~MSCommBurstsTest() override {
        MSComm::SetDevices({});
        MSComm::SetWholeBursts({});
        MSComm::SetClock({});
    }

    void Open() {
        line.SetPortOpen(true);
        PassSilently();
    }
    /// A detected pause that ends a burst.
    void PassSilently() {
        now += 51ms;
        EXPECT_EQ(line.Input(), "");
    }
    /// Waits until the event loop has read the sent bytes.
    void ExpectTaken() {
        ASSERT_TRUE(WaitFor([&] { return indicator.Unread() == 0; }));
    }

    PseudoTerminal indicator, other;
    std::string terminal = indicator.Device(), second = other.Device();
    std::chrono::steady_clock::time_point now{};
    Screen screen{"FrmTest", "Test"};
    MSComm line{screen, "CM"};
};

TEST_F(MSCommBurstsTest, ReturnsTwoWholeBurstsForAnyTimingOfTheReads) {
    Open();
    for (const char* sent : {"+0125", "40 kg\r\n"}) {
        indicator.Write(sent);
        EXPECT_EQ(line.Input(), "");
        now += 30ms;
        EXPECT_EQ(line.Input(), "") << "no pause yet";
    }
    PassSilently();
    indicator.Write("+012540 kg\r\n");
    EXPECT_EQ(line.Input(), "");
    now += 51ms;
    EXPECT_EQ(line.Input(), "+012540 kg\r\n+012540 kg\r\n");
    EXPECT_EQ(line.Input(), "");
}

TEST_F(MSCommBurstsTest, DropsTheBurstThatWasUnderWayAtOpening) {
    line.SetPortOpen(true);
    indicator.Write("540 kg\r\n");
    for (const char* sent : {"+012540 kg\r\n", "+012540 kg\r\n"}) {
        EXPECT_EQ(line.Input(), "");
        PassSilently();
        indicator.Write(sent);
    }
    EXPECT_EQ(line.Input(), "");
    now += 51ms;
    EXPECT_EQ(line.Input(), "+012540 kg\r\n+012540 kg\r\n");
}

TEST_F(MSCommBurstsTest, DetectsPausesBetweenTheReads) {
    Open();
    for (const char* sent : {"one ", "two "}) {
        indicator.Write(sent);
        ExpectTaken();
        now += 51ms;
        // The line detects pauses itself, without a call of Input.
        int looks = 0;
        MSComm::SetClock([this, &looks] {
            ++looks;
            return now;
        });
        ASSERT_TRUE(WaitFor([&] { return looks > 0; }));
        MSComm::SetClock([this] { return now; });
    }
    EXPECT_EQ(line.Input(), "one two ");
}

TEST_F(MSCommBurstsTest, WaitsForThreeCharacterTimesOnASlowLine) {
    line.SetSettings("110,e,8,2"); // 12 bits: 109 ms each
    line.SetPortOpen(true);
    now += 328ms;
    EXPECT_EQ(line.Input(), "");
    for (int burst = 0; burst < 2; ++burst) {
        indicator.Write("1");
        EXPECT_EQ(line.Input(), "");
        now += 327ms;
        EXPECT_EQ(line.Input(), "");
        indicator.Write("2");
        EXPECT_EQ(line.Input(), "");
        now += 328ms;
        EXPECT_EQ(line.Input(), burst == 0 ? "" : "1212");
    }
}

TEST_F(MSCommBurstsTest, ReturnsTheNumberOfBurstsOfTheControl) {
    MSComm bench(screen, "Bench", 1, "2400,n,8,1", 3);
    bench.SetPortOpen(true);
    for (const char* sent : {"one ", "two ", "three"}) {
        now += 51ms;
        EXPECT_EQ(bench.Input(), "");
        indicator.Write(sent);
        EXPECT_EQ(bench.Input(), "");
    }
    now += 51ms;
    EXPECT_EQ(bench.Input(), "one two three");
}

TEST_F(MSCommBurstsTest, ReadsOtherPortsWithoutBursts) {
    line.SetCommPort(2);
    line.SetPortOpen(true);
    other.Write("+0125");
    EXPECT_EQ(line.Input(), "+0125");
}

TEST_F(MSCommBurstsTest, ForgetsItsBurstsWhenItCloses) {
    Open();
    indicator.Write("one ");
    EXPECT_EQ(line.Input(), "");
    PassSilently();
    line.SetPortOpen(false);
    Open();
    indicator.Write("two ");
    EXPECT_EQ(line.Input(), "");
    now += 51ms;
    EXPECT_EQ(line.Input(), "");
}

TEST_F(MSCommBurstsTest, FailsIfTheLineNeverPauses) {
    Open();
    for (int look = 0; look < 200; ++look) {
        now += 25ms;
        indicator.Write("12540 ");
        EXPECT_EQ(line.Input(), "");
    }
    now += 25ms;
    indicator.Write("12540 ");
    try {
        line.Input();
        ADD_FAILURE() << "Input has not failed";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), 8002);
        EXPECT_EQ(failure.Source(), "Serial line");
        EXPECT_EQ(failure.Description(),
                  "Port 1 (" + terminal +
                      ") sends without a pause, but [WholeBursts] in Station.ini expects pauses. "
                      "Remove the port from that section and restart the program.");
    }
    EXPECT_TRUE(line.PortOpen());
    PassSilently();
}

TEST_F(MSCommBurstsTest, IsClosedByALineThatHangsUp) {
    Open();
    indicator.HangUp();
    EXPECT_TRUE(WaitFor([&] { return !line.PortOpen(); }));
    EXPECT_THROW(line.Input(), Failure);
}

} // namespace
} // namespace Quillane
