// The entries of a station file, as far as the lines of its ports.

#include "platform/comm/StationPorts.h"

#include "platform/comm/MSComm.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Screen.h"
#include "platform/host/StationFile.h"
#include "station/FreshFolder.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using Testing::PseudoTerminal;
using Testing::WaitFor;

class StationPorts : public testing::Test {
protected:
    StationPorts() {
        TheStation() = StationFile::Read(
            folder.Write("Station.ini", "[Ports]\n1=" + pausing.Device() +
                                            "\n2=" + steady.Device() + "\n[WholeBursts]\n1=yes\n"));
        UseStationPorts();
        MSComm::SetClock([this] { return now; });
    }
    ~StationPorts() override {
        MSComm::SetDevices({});
        MSComm::SetWholeBursts({});
        MSComm::SetClock({});
        TheStation() = {};
    }

    /// What is read of half a frame.
    std::string ReadOfHalfAFrame(std::int16_t port, PseudoTerminal& indicator) {
        Screen screen("FrmTest", "Test");
        MSComm line(screen, "CM");
        line.SetCommPort(port);
        line.SetPortOpen(true);
        now += std::chrono::milliseconds(51);
        EXPECT_EQ(line.Input(), "");
        indicator.Write("+0125");
        std::string read;
        EXPECT_TRUE(WaitFor([&] {
            read += line.Input();
            return indicator.Unread() == 0;
        }));
        return read + line.Input();
    }

    const FreshFolder folder;
    PseudoTerminal pausing, steady;
    std::chrono::steady_clock::time_point now{};
};

TEST_F(StationPorts, AreReadInWholeBurstsIfTheStationFileNamesThem) {
    EXPECT_EQ(ReadOfHalfAFrame(1, pausing), "");
    EXPECT_EQ(ReadOfHalfAFrame(2, steady), "+0125");
}

} // namespace
} // namespace Quillane
