#include "platform/comm/MSComm.h"

#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Screen.h"
#include "platform/runtime/Failure.h"
#include "support/ScreenDriver.h"

#include <QLockFile>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sys/stat.h>

namespace Quillane {
namespace {

using Testing::PseudoTerminal;
using Testing::WaitFor;

std::optional<Failure> FailureOf(const std::function<void()>& procedure) {
    try {
        procedure();
    } catch (const Failure& failure) {
        return failure;
    }
    return std::nullopt;
}

void ExpectFailure(const std::function<void()>& procedure, int number,
                   const std::string& description) {
    const auto failure = FailureOf(procedure);
    ASSERT_TRUE(failure) << "no failure, expected: " << description;
    EXPECT_EQ(failure->Number(), number);
    EXPECT_EQ(failure->Description(), description);
    EXPECT_EQ(failure->Source(), "Serial line");
}

class MSCommTest : public testing::Test {
protected:
    MSCommTest() {
        MSComm::SetDevices([this](int port) {
            return port == 1 ? terminal.Device() : "/dev/no-such-line-" + std::to_string(port);
        });
    }
    ~MSCommTest() override { MSComm::SetDevices({}); }

    std::string InputOf(std::size_t size) {
        std::string received;
        EXPECT_TRUE(WaitFor([&] { return (received += line.Input()).size() >= size; }))
            << received.size() << " of " << size;
        return received;
    }

    std::string Named() const { return "Port 1 (" + terminal.Device() + ")"; }

    PseudoTerminal terminal;
    Screen screen{"FrmTest", "Test"};
    MSComm line{screen, "CM"};
};

TEST_F(MSCommTest, IsAnInvisibleControl) {
    EXPECT_EQ(line.Name(), "CM");
    EXPECT_EQ(line.TypeName(), "MSComm");
    EXPECT_EQ(screen.Controls(), std::vector<Control*>{&line});
}

TEST_F(MSCommTest, StartsClosedWithTheSettingsOfItsDesign) {
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(line.CommPort(), 1);
    EXPECT_EQ(line.Settings(), "9600,n,8,1");
    const MSComm bench(screen, "Bench", 2, "2400,n,8,1");
    EXPECT_EQ(bench.CommPort(), 2);
    EXPECT_EQ(bench.Settings(), "2400,n,8,1");
}

TEST_F(MSCommTest, ReturnsReceivedBytesOnce) {
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
    EXPECT_EQ(line.Input(), "");
    terminal.Write("+001250 kg\r\n");
    EXPECT_EQ(line.Input(), "+001250 kg\r\n");
    EXPECT_EQ(line.Input(), "");
    terminal.Write("+0012");
    terminal.Write("60 kg");
    EXPECT_EQ(line.Input(), "+001260 kg");
}

TEST_F(MSCommTest, ReturnsBytesReceivedDuringAndAfterEvents) {
    line.SetPortOpen(true);
    terminal.Write("first ");
    ASSERT_TRUE(WaitFor([&] { return terminal.Unread() == 0; })) << "not read by the event loop";
    terminal.Write("second");
    EXPECT_EQ(line.Input(), "first second");
}

TEST_F(MSCommTest, ReturnsEveryByteAsOneCharacter) {
    std::string bytes;
    for (int code = 0; code <= 255; ++code)
        bytes += static_cast<char>(code);
    line.SetPortOpen(true);
    terminal.Write(bytes);
    EXPECT_EQ(line.Input(), bytes);
}

TEST_F(MSCommTest, KeepsTheOldestOfAFullBufferAndDropsTheRest) {
    const std::string sent = std::string(1024, 'a') + std::string(2000, 'b');
    line.SetPortOpen(true);
    terminal.Write(sent);
    EXPECT_EQ(line.Input(), std::string(1024, 'a'));
    EXPECT_EQ(line.Input(), "") << "the rest is also dropped from the buffer of the system";
    terminal.Write("fresh");
    EXPECT_EQ(line.Input(), "fresh");
}

TEST_F(MSCommTest, KeepsTheOldestBytesWithoutAReadForLong) {
    line.SetPortOpen(true);
    terminal.Write(std::string(1000, 'a'));
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(WaitFor([&] { return terminal.Unread() == 0; })) << round;
        terminal.Write(std::string(3000, 'b'));
    }
    ASSERT_TRUE(WaitFor([&] { return terminal.Unread() == 0; }));
    EXPECT_EQ(line.Input(), std::string(1000, 'a') + std::string(24, 'b'));
    terminal.Write("fresh");
    EXPECT_EQ(line.Input(), "fresh");
}

TEST_F(MSCommTest, ForgetsWhatWasReceivedWhenItCloses) {
    line.SetPortOpen(true);
    terminal.Write("old");
    ASSERT_TRUE(WaitFor([&] { return terminal.Unread() == 0; }));
    line.SetPortOpen(false);
    EXPECT_FALSE(line.PortOpen());
    line.SetPortOpen(true);
    EXPECT_EQ(line.Input(), "");
    terminal.Write("new");
    EXPECT_EQ(line.Input(), "new");
}

TEST_F(MSCommTest, OpensWithAnySettingsOfTheLists) {
    for (const char* rate : {"110", "300", "600", "1200", "2400", "4800", "9600", "14400", "19200",
                             "28800", "38400", "56000"})
        for (const char* rest :
             {",n,8,1", ",e,7,2", ",o,7,1", ",m,8,1", ",s,8,1", ",n,5,1.5", ",n,6,1"}) {
            const std::string settings = std::string(rate) + rest;
            line.SetSettings(settings);
            EXPECT_EQ(line.Settings(), settings);
            const auto failure = FailureOf([&] { line.SetPortOpen(true); });
            EXPECT_FALSE(failure) << settings << ": " << failure->Description();
            line.SetPortOpen(false);
        }
}

TEST_F(MSCommTest, FailsToReadWhileClosed) {
    ExpectFailure([&] { line.Input(); }, 8018, "Port 1 is closed: nothing can be read from it.");
    line.SetPortOpen(true);
    line.SetPortOpen(false);
    ExpectFailure([&] { line.Input(); }, 8018, "Port 1 is closed: nothing can be read from it.");
}

TEST_F(MSCommTest, ClosesTwiceWithoutAFailure) {
    line.SetPortOpen(false);
    line.SetPortOpen(true);
    line.SetPortOpen(false);
    line.SetPortOpen(false);
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(MSCommTest, CanBeChangedOnlyWhileClosed) {
    line.SetPortOpen(true);
    ExpectFailure([&] { line.SetPortOpen(true); }, 8005, Named() + " is already open.");
    ExpectFailure([&] { line.SetCommPort(2); }, 8005,
                  Named() + " is open, so its number cannot be changed.");
    ExpectFailure([&] { line.SetSettings("2400,n,8,1"); }, 8005,
                  Named() + " is open, so its settings cannot be changed.");
    EXPECT_TRUE(line.PortOpen());
    EXPECT_EQ(line.CommPort(), 1);
    EXPECT_EQ(line.Settings(), "9600,n,8,1");
    terminal.Write("still read");
    EXPECT_EQ(line.Input(), "still read");
}

TEST_F(MSCommTest, RefusesInvalidSettingsAndPortNumbers) {
    ExpectFailure([&] { line.SetSettings("fast"); }, 5,
                  "\"fast\" is not a valid line setting. Use rate,parity,data bits,stop bits, for "
                  "example 9600,n,8,1.");
    EXPECT_EQ(line.Settings(), "9600,n,8,1");
    ExpectFailure([&] { line.SetCommPort(0); }, 5,
                  "0 is not a valid port number. Port numbers start at 1.");
    ExpectFailure([&] { line.SetCommPort(-3); }, 5,
                  "-3 is not a valid port number. Port numbers start at 1.");
    EXPECT_EQ(line.CommPort(), 1);
    ExpectFailure([&] { MSComm(screen, "Bad", 1, "x"); }, 5,
                  "\"x\" is not a valid line setting. Use rate,parity,data bits,stop bits, for "
                  "example 9600,n,8,1.");
}

TEST_F(MSCommTest, ReportsAMissingDevice) {
    line.SetCommPort(7);
    ExpectFailure([&] { line.SetPortOpen(true); }, 8002,
                  "Port 7 (/dev/no-such-line-7) cannot be opened: the device does not exist. Check "
                  "that the indicator's adapter is plugged in.");
    EXPECT_FALSE(line.PortOpen());
    line.SetCommPort(1);
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
}

// Programs that search for the device, or were killed, leave a lock for its name.
TEST_F(MSCommTest, ReportsAMissingDeviceEvenIfItsNameIsLocked) {
    const std::string device = "/dev/no-such-line-" + std::to_string(getpid());
    MSComm::SetDevices([&](int) { return device; });
    QLockFile lock(QString::fromStdString(Testing::LockName::LockFile(device)));
    ASSERT_TRUE(lock.tryLock());
    ExpectFailure([&] { line.SetPortOpen(true); }, 8002,
                  "Port 1 (" + device +
                      ") cannot be opened: the device does not exist. Check that the indicator's "
                      "adapter is plugged in.");
}

TEST_F(MSCommTest, ReportsADeviceInUseUnderAnyName) {
    const auto link = std::filesystem::temp_directory_path() /
                      ("line-" + std::to_string(getpid()) + "-under-another-name");
    std::filesystem::create_symlink(terminal.Device(), link);
    MSComm other(screen, "Other");
    other.SetPortOpen(true);
    MSComm::SetDevices([&](int) { return link.string(); });
    ExpectFailure([&] { line.SetPortOpen(true); }, 8002,
                  "Port 1 (" + link.string() + ") cannot be opened: another program is using it.");
    EXPECT_FALSE(line.PortOpen());
    other.SetPortOpen(false);
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
    std::filesystem::remove(link);
}

TEST_F(MSCommTest, ReportsADeviceThatThisUserMayNotUse) {
    ASSERT_EQ(chmod(terminal.Device().c_str(), 0), 0);
    // In another process, since root may use every device.
    const auto openAsNobody = [this] {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
            _exit(2);
        const auto failure = FailureOf([this] { line.SetPortOpen(true); });
        std::fputs(failure ? failure->Description().c_str() : "opened", stderr);
        _exit(0);
    };
    EXPECT_EXIT(
        openAsNobody(), testing::ExitedWithCode(0),
        "Port 1 \\(.*\\) cannot be opened: this user has no permission to use the device\\.");
}

TEST_F(MSCommTest, ReportsAFileThatIsNotASerialLine) {
    const auto file = std::filesystem::temp_directory_path() /
                      ("line-" + std::to_string(getpid()) + "-plain-file");
    std::ofstream(file) << "12540";
    MSComm::SetDevices([&](int) { return file.string(); });
    ExpectFailure(
        [&] { line.SetPortOpen(true); }, 8002,
        "Port 1 (" + file.string() +
            ") cannot be opened: it is not a serial line, or does not support the settings "
            "9600,n,8,1.");
    EXPECT_FALSE(line.PortOpen());
    std::filesystem::remove(file);
}

TEST_F(MSCommTest, IsClosedByALineThatHangsUpWhileEventsRun) {
    line.SetPortOpen(true);
    terminal.HangUp();
    EXPECT_TRUE(WaitFor([&] { return !line.PortOpen(); }));
    const std::string text = Named() + " is closed: the line was disconnected. Check the cable.";
    ExpectFailure([&] { line.Input(); }, 8018, text);
    ExpectFailure([&] { line.Input(); }, 8018, text);
}

TEST_F(MSCommTest, IsClosedByALineThatHungUpBeforeTheRead) {
    line.SetPortOpen(true);
    terminal.Write("last words");
    terminal.HangUp();
    ExpectFailure([&] { line.Input(); }, 8018,
                  Named() + " is closed: the line was disconnected. Check the cable.");
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(MSCommTest, OpensAgainAfterAHangUp) {
    line.SetPortOpen(true);
    terminal.HangUp();
    EXPECT_TRUE(FailureOf([&] { line.Input(); }));
    // Before the event loop has processed the end of the old line.
    PseudoTerminal second;
    MSComm::SetDevices([&](int) { return second.Device(); });
    line.SetPortOpen(true);
    second.Write("back again");
    ASSERT_TRUE(WaitFor([&] { return second.Unread() == 0; }));
    EXPECT_TRUE(line.PortOpen());
    EXPECT_EQ(line.Input(), "back again");
}

TEST_F(MSCommTest, CanBeClosedAndChangedAfterAHangUp) {
    line.SetPortOpen(true);
    terminal.HangUp();
    EXPECT_TRUE(FailureOf([&] { line.Input(); }));
    line.SetCommPort(2);
    line.SetSettings("2400,n,8,1");
    line.SetPortOpen(false);
    ExpectFailure([&] { line.Input(); }, 8018, "Port 2 is closed: nothing can be read from it.");
}

TEST_F(MSCommTest, ReleasesTheDeviceWhenDestroyed) {
    {
        MSComm other(screen, "Other");
        other.SetPortOpen(true);
    }
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
}

TEST_F(MSCommTest, UsesTheDefaultPortsIfTheStationFileNamesNone) {
    MSComm::SetDevices({});
    line.SetCommPort(99);
    const auto failure = FailureOf([&] { line.SetPortOpen(true); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Description().find("Port 99 (/dev/ttyS98) cannot be opened: "), 0u)
        << failure->Description();
}

} // namespace
} // namespace Quillane
