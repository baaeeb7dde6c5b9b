// The checks of the station's folder and ports before the set-up dialog is shown.

#include "setup/SetupChecks.h"

#include "platform/host/StationFile.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"
#include "support/Nobody.h"
#include "support/OwnDisk.h"
#include "support/SkipIfMissing.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillane {
namespace {

/// Prints the result of the check of a folder; for a child process.
[[noreturn]] void PrintFault(const std::string& folder) {
    std::string result = "it is writable";
    try {
        CheckFolderTakesFiles(folder);
    } catch (const Failure& failure) {
        result = failure.Description();
    }
    std::fputs(result.c_str(), stderr);
    std::_Exit(0);
}

[[noreturn]] void PrintFaultAsNobody(const std::string& folder) {
    BecomeNobody();
    PrintFault(folder);
}

std::string Refusal(const std::string& folder, const std::string& why) {
    return "^Nothing can be stored in the station folder " + folder + ": " + why + "\\.";
}

class SetupChecks : public testing::Test {
protected:
    FreshFolder folder;
};

TEST_F(SetupChecks, AcceptAWritableFolderAndLeaveNoFile) {
    for (const char* name : {"gate", "gate north", "گیٹ شمالی"}) {
        std::filesystem::create_directory(folder.File(name));
        EXPECT_NO_THROW(CheckFolderTakesFiles(folder.File(name))) << name;
        EXPECT_TRUE(std::filesystem::is_empty(folder.File(name))) << name;
    }
}

TEST_F(SetupChecks, RefuseAMissingFolder) {
    const Failure failure = FailureOf([&] { CheckFolderTakesFiles(folder.File("gone")); });
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_TRUE(failure.Description().starts_with("Nothing can be stored in the station folder " +
                                                  folder.File("gone") +
                                                  ": No such file or directory."));
}

TEST_F(SetupChecks, RefuseAReadOnlyFolder) {
    ::chmod(folder.path.c_str(), 0555);
    EXPECT_EXIT(PrintFaultAsNobody(folder.path), testing::ExitedWithCode(0),
                Refusal(folder.path, "Permission denied"));
    ::chmod(folder.path.c_str(), 0700);
}

TEST_F(SetupChecks, RefuseAFolderOfAnotherUser) {
    ::chmod(folder.path.c_str(), ::geteuid() == 0 ? 0700 : 0);
    EXPECT_EXIT(PrintFaultAsNobody(folder.path), testing::ExitedWithCode(0),
                Refusal(folder.path, "Permission denied"));
    ::chmod(folder.path.c_str(), 0700);
}

TEST_F(SetupChecks, RefuseAFullDisk) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    const auto printFault = [&] { PrintFault(folder.path); };
    EXPECT_EXIT((OwnDisk{.folder = folder.path, .size = "100k"}.CallAndExit(printFault)),
                testing::ExitedWithCode(0), Refusal(folder.path, "No space left on device"));
    EXPECT_EXIT((OwnDisk{.folder = folder.path, .size = "10m"}.CallAndExit(printFault)),
                testing::ExitedWithCode(0), "it is writable");
}

TEST_F(SetupChecks, RefuseAReadOnlyDisk) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    const OwnDisk disk{.folder = folder.path, .size = "10m", .isReadOnly = true};
    EXPECT_EXIT(disk.CallAndExit([&] { PrintFault(folder.path); }), testing::ExitedWithCode(0),
                Refusal(folder.path, "Read-only file system"));
}

TEST_F(SetupChecks, CheckTheFirstPortByDefault) {
    StationFile station;
    const bool there = std::filesystem::exists("/dev/ttyS0");
    const std::string faults = PortFaults(station);
    EXPECT_EQ(
        faults.starts_with("Port 1 (/dev/ttyS0) cannot be used yet: the device does not exist."),
        !there)
        << faults;
}

TEST_F(SetupChecks, NameAPortWithoutPermission) {
    StationFile station;
    station.Ports[3] = folder.File("line");
    folder.Write("line", "");
    EXPECT_EQ(PortFaults(station), "");
    ::chmod(folder.path.c_str(), 0755);
    ::chmod(folder.File("line").c_str(), 0);
    const auto asNobody = [&] {
        BecomeNobody();
        std::fputs(PortFaults(station).c_str(), stderr);
        std::_Exit(0);
    };
    EXPECT_EXIT(asNobody(), testing::ExitedWithCode(0),
                "Port 3 \\(.*/line\\) cannot be used yet: this user has no permission to use the "
                "device\\.");
}

} // namespace
} // namespace Quillane
