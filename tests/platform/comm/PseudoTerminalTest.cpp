#include "platform/comm/PseudoTerminal.h"

#include "platform/comm/MSComm.h"
#include "platform/forms/core/Screen.h"

#include <QLockFile>

#include <filesystem>

namespace Quillane {
namespace {

using Testing::LockName;
using Testing::PseudoTerminal;

TEST(PseudoTerminal, IsLockedByTheFileWithItsName) {
    const PseudoTerminal terminal;
    MSComm::SetDevices([&](int) { return terminal.Device(); });
    Screen screen("FrmTest", "Test");
    MSComm line(screen, "CM");
    EXPECT_FALSE(std::filesystem::exists(LockName::LockFile(terminal.Device())));
    line.SetPortOpen(true);
    EXPECT_TRUE(std::filesystem::exists(LockName::LockFile(terminal.Device())));
    MSComm::SetDevices({});
}

// The state just after a process has closed its line: the number is free, but still locked.
TEST(PseudoTerminal, DoesNotUseANameThatIsStillLocked) {
    auto former = std::make_unique<PseudoTerminal>();
    const std::string name = former->Device();
    QLockFile lock(QString::fromStdString(LockName::LockFile(name)));
    ASSERT_TRUE(lock.tryLock());
    former.reset();
    const PseudoTerminal terminal;
    EXPECT_NE(terminal.Device(), name);
    MSComm::SetDevices([&](int) { return terminal.Device(); });
    Screen screen("FrmTest", "Test");
    MSComm line(screen, "CM");
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
    MSComm::SetDevices({});
}

TEST(LockName, HasOneUserAtATime) {
    const std::string device = "/dev/pts/one-user-" + std::to_string(getpid());
    auto first = LockName::Claim(device);
    ASSERT_TRUE(first);
    EXPECT_FALSE(LockName::Claim(device));
    EXPECT_FALSE(LockName::Claim(device)) << "a refused reservation does not release the name";
    first.reset();
    EXPECT_TRUE(LockName::Claim(device));
}

} // namespace
} // namespace Quillane
