// The station's folder and ports, looked at before the set-up's form is shown.

#include "setup/SetUpChecks.h"

#include "platform/host/StationFile.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillane {
namespace {

constexpr unsigned nobody = 65534;
constexpr int notPossibleHere = 77;

/// Writes what the check says of a folder; for a process of its own.
[[noreturn]] void TellFault(const std::string& folder) {
    std::string told = "it takes files";
    try {
        CheckFolderTakesFiles(folder);
    } catch (const Failure& failure) {
        told = failure.Description();
    }
    std::fputs(told.c_str(), stderr);
    std::_Exit(0);
}

// Root may do everything.
[[noreturn]] void TellFaultAsNobody(const std::string& folder) {
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        std::_Exit(notPossibleHere);
    TellFault(folder);
}

/// On a disk of a size of its own, which only this process sees.
[[noreturn]] void TellFaultOnDisk(const std::string& folder, const char* options,
                                  unsigned long flags) {
    if (::unshare(CLONE_NEWNS | (::geteuid() == 0 ? 0 : CLONE_NEWUSER)) != 0 ||
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("small", folder.c_str(), "tmpfs", flags, options) != 0)
        std::_Exit(notPossibleHere);
    TellFault(folder);
}

/// Whether a disk of its own can be given to a process; not in every container.
bool MayMount(const std::string& folder) {
    const pid_t child = ::fork();
    if (child == 0)
        TellFaultOnDisk(folder, "size=100k", 0);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status) == 0;
}

std::string Refusal(const std::string& folder, const std::string& why) {
    return "^Nothing can be stored in the station folder " + folder + ": " + why + "\\.";
}

class SetUpChecks : public testing::Test {
protected:
    FreshFolder folder;
};

TEST_F(SetUpChecks, PassAFolderThatTakesFilesAndLeaveNothingInIt) {
    for (const char* name : {"gate", "gate north", "گیٹ شمالی"}) {
        std::filesystem::create_directory(folder.File(name));
        EXPECT_NO_THROW(CheckFolderTakesFiles(folder.File(name))) << name;
        EXPECT_TRUE(std::filesystem::is_empty(folder.File(name))) << name;
    }
}

TEST_F(SetUpChecks, RefuseAFolderThatIsMissing) {
    const Failure failure = FailureOf([&] { CheckFolderTakesFiles(folder.File("gone")); });
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_TRUE(failure.Description().starts_with("Nothing can be stored in the station folder " +
                                                  folder.File("gone") +
                                                  ": No such file or directory."));
}

TEST_F(SetUpChecks, RefuseAFolderThatThisUserMayOnlyRead) {
    ::chmod(folder.path.c_str(), 0555);
    EXPECT_EXIT(TellFaultAsNobody(folder.path), testing::ExitedWithCode(0),
                Refusal(folder.path, "Permission denied"));
    ::chmod(folder.path.c_str(), 0700);
}

TEST_F(SetUpChecks, RefuseAFolderOfAnotherUser) {
    ::chmod(folder.path.c_str(), ::geteuid() == 0 ? 0700 : 0);
    EXPECT_EXIT(TellFaultAsNobody(folder.path), testing::ExitedWithCode(0),
                Refusal(folder.path, "Permission denied"));
    ::chmod(folder.path.c_str(), 0700);
}

TEST_F(SetUpChecks, RefuseAFullDisk) {
    if (!MayMount(folder.path))
        GTEST_SKIP() << "No disk can be mounted here";
    EXPECT_EXIT(TellFaultOnDisk(folder.path, "size=100k", 0), testing::ExitedWithCode(0),
                Refusal(folder.path, "No space left on device"));
    EXPECT_EXIT(TellFaultOnDisk(folder.path, "size=10m", 0), testing::ExitedWithCode(0),
                "it takes files");
}

TEST_F(SetUpChecks, RefuseADiskThatCanOnlyBeRead) {
    if (!MayMount(folder.path))
        GTEST_SKIP() << "No disk can be mounted here";
    EXPECT_EXIT(TellFaultOnDisk(folder.path, "size=10m", MS_RDONLY), testing::ExitedWithCode(0),
                Refusal(folder.path, "Read-only file system"));
}

TEST_F(SetUpChecks, LookAtTheFirstPortWhereTheStationFileNamesNone) {
    StationFile station;
    const bool there = std::filesystem::exists("/dev/ttyS0");
    const std::string faults = PortFaults(station);
    EXPECT_EQ(
        faults.starts_with("Port 1 (/dev/ttyS0) cannot be used yet: the device does not exist."),
        !there)
        << faults;
}

TEST_F(SetUpChecks, NameAPortThatThisUserMayNotUse) {
    StationFile station;
    station.Ports[3] = folder.File("line");
    folder.Write("line", "");
    EXPECT_EQ(PortFaults(station), "");
    ::chmod(folder.path.c_str(), 0755);
    ::chmod(folder.File("line").c_str(), 0);
    const auto asNobody = [&] {
        if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            std::_Exit(notPossibleHere);
        std::fputs(PortFaults(station).c_str(), stderr);
        std::_Exit(0);
    };
    EXPECT_EXIT(asNobody(), testing::ExitedWithCode(0),
                "Port 3 \\(.*/line\\) cannot be used yet: this user has no permission to use the "
                "device\\.");
}

} // namespace
} // namespace Quillane
