#include "platform/comm/PseudoTerminal.h"

#include "platform/comm/MSComm.h"
#include "platform/forms/core/Screen.h"

#include <QLockFile>

#include <filesystem>

namespace Quillane {
namespace {

using Testing::LockName;
using Testing::PseudoTerminal;

TEST(PseudoTerminal, IsLockedByTheFileThatBearsItsName) {
    const PseudoTerminal terminal;
    MSComm::SetDevices([&](int) { return terminal.Device(); });
    Screen screen("FrmTest", "Test");
    MSComm line(screen, "CM");
    EXPECT_FALSE(std::filesystem::exists(LockName::LockFile(terminal.Device())));
    line.SetPortOpen(true);
    EXPECT_TRUE(std::filesystem::exists(LockName::LockFile(terminal.Device())));
    MSComm::SetDevices({});
}

// As a process that closes its line leaves it for a moment: the number is free, its lock not yet.
TEST(PseudoTerminal, TakesNoNameThatIsStillLocked) {
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
    EXPECT_FALSE(LockName::Claim(device)) << "a refused claim leaves the name with its user";
    first.reset();
    EXPECT_TRUE(LockName::Claim(device));
}

} // namespace
} // namespace Quillane
