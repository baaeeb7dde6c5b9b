// Lock files of serial devices, left by ended processes or in use.

#include "platform/comm/LineLock.h"

#include "platform/comm/MSComm.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/forms/core/Screen.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillane {
namespace {

namespace fs = std::filesystem;
using Testing::LockName;
using Testing::PseudoTerminal;

constexpr unsigned nobody = 65534;
constexpr int notPossibleHere = 77;

pid_t EndedProcess() {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

std::string NameOf(pid_t process) {
    return fs::read_symlink("/proc/" + std::to_string(process) + "/exe").filename();
}

/// Not every container allows a private mount for a process.
bool OpenedOrNotPossible(int status) {
    return WIFEXITED(status) &&
           (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == notPossibleHere);
}

class LineLockTest : public testing::Test {
protected:
    LineLockTest() {
        MSComm::SetDevices([this](int) { return terminal.Device(); });
        ::chmod(terminal.Device().c_str(), 0666);
    }
    ~LineLockTest() override {
        MSComm::SetDevices({});
        fs::remove(lock);
    }

    /// Like terminal programs: the process number in ten characters.
    void LeaveLock(pid_t process, const std::string& name = {}) const {
        const std::string number = std::to_string(process);
        std::ofstream(lock) << std::string(10 - number.size(), ' ') << number << "\n"
                            << name << "\n";
        ::chmod(lock.c_str(), 0644);
    }

    std::string Named() const { return "Port 1 (" + terminal.Device() + ")"; }

    /// Prints the result of opening the port; for a child process.
    [[noreturn]] void OpenAsNobody() {
        if (::setgid(nobody) != 0 || ::setuid(nobody) != 0)
            std::_Exit(notPossibleHere);
        std::string end = "opened";
        try {
            line.SetPortOpen(true);
        } catch (const Failure& failure) {
            end = failure.Description();
        }
        std::fputs(end.c_str(), stderr);
        std::_Exit(0);
    }

    PseudoTerminal terminal;
    const std::string lock = LockName::LockFile(terminal.Device());
    Screen screen{"FrmTest", "Test"};
    MSComm line{screen, "CM"};
};

TEST_F(LineLockTest, LockOfAnEndedProcessIsRemoved) {
    LeaveLock(EndedProcess());
    line.SetPortOpen(true);
    EXPECT_TRUE(line.PortOpen());
    line.SetPortOpen(false);
    EXPECT_FALSE(fs::exists(lock));
}

TEST_F(LineLockTest, LockOfAnotherUsersEndedProgramIsRemovedIfTheFolderPermitsIt) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "Only root can open the line as two users";
    const pid_t ended = EndedProcess();
    const auto openInSharedFolder = [&] {
        const std::string folder = fs::canonical(fs::path(lock).parent_path());
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("shared", folder.c_str(), "tmpfs", 0, "mode=0777") != 0)
            std::_Exit(notPossibleHere);
        LeaveLock(ended, "quillane");
        OpenAsNobody();
    };
    EXPECT_EXIT(openInSharedFolder(), OpenedOrNotPossible, "^(opened)?$");
}

TEST_F(LineLockTest, LockOfARunningProcessIsRespected) {
    LeaveLock(::getppid(), NameOf(::getppid()));
    EXPECT_EQ(FailureOf([&] { line.SetPortOpen(true); }).Description(),
              Named() + " cannot be opened: another program is using it.");
    EXPECT_TRUE(fs::exists(lock));
}

TEST_F(LineLockTest, LockedFileIsInUseWhateverProcessItNames) {
    MSComm other(screen, "Other");
    other.SetPortOpen(true);
    EXPECT_EQ(ReadLineLock(terminal.Device()).state, LineLock::State::InUse);
    EXPECT_FALSE(RemoveLeftLock({LineLock::State::Left, lock}));
    other.SetPortOpen(false);
    EXPECT_EQ(ReadLineLock(terminal.Device()).state, LineLock::State::None);
    EXPECT_FALSE(RemoveLeftLock({LineLock::State::Left, lock}));
}

TEST_F(LineLockTest, StaleLockOfAnotherUserIsNamed) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "Only root can open the line as two users";
    LeaveLock(EndedProcess(), "quillane");
    EXPECT_EXIT(OpenAsNobody(), testing::ExitedWithCode(0),
                "^Port 1 \\(.*\\) cannot be opened: a program that has ended left the lock file " +
                    lock +
                    ", and this user may not delete it\\. Ask the administrator of the computer to "
                    "delete the file, or restart the computer\\.$");
    EXPECT_TRUE(fs::exists(lock));
}

TEST_F(LineLockTest, LockOfAnotherUsersRunningProgramIsInUse) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "Only root can open the line as two users";
    LeaveLock(::getppid());
    EXPECT_EXIT(OpenAsNobody(), testing::ExitedWithCode(0),
                "cannot be opened: another program is using it\\.$");
}

TEST_F(LineLockTest, UnreadableLockOfAnotherUserIsNamed) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "Only root can open the line as two users";
    LeaveLock(EndedProcess(), "quillane");
    ::chmod(lock.c_str(), 0600);
    EXPECT_EXIT(OpenAsNobody(), testing::ExitedWithCode(0),
                "cannot be opened: the lock file " + lock +
                    " belongs to another user\\. Close the program of that user\\. If none is "
                    "running, ask the administrator of the computer to delete the file\\.$");
}

} // namespace
} // namespace Quillane
