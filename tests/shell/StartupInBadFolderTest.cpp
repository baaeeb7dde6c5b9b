// A station that worked before, in a folder in which it cannot work any more: the start ends with a
// message, before the sign-in.

#include "data/Con.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "setup/EmbeddedSchema.h"
#include "shell/Startup.h"
#include "station/FreshFolder.h"
#include "station/StationDatabase.h"
#include "support/Nobody.h"
#include "support/OwnDisk.h"
#include "support/ScreenDriver.h"
#include "support/SkipIfMissing.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sys/mount.h>
#include <unistd.h>

namespace Quillane {
namespace {

namespace fs = std::filesystem;

using Testing::VisitModal;

constexpr std::array<const char*, 2> stationFiles{"Config.ini", "Account1.db"};

[[noreturn]] void End(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::_Exit(0);
}

/// Starts the station and prints the text of its first box; for a child process.
[[noreturn]] void PrintFirstBox() {
    SetBoxPresenter({.message = [](const Box& box) -> BoxAnswer { End(box.text); }, .input = {}});
    const VisitModal visit([](Screen&) { End("the sign-in is shown"); });
    RunEvent([] {
        CheckStationFolder(StationFolder());
        Main();
    });
    End("nothing is shown");
}

class StartUpInBadFolder : public testing::Test {
protected:
    StartUpInBadFolder() {
        CreateEmbeddedDatabase(File("Account1.db"), ParticularsOf("Veltrane", "ali", "wheat"));
        folder.Write("Config.ini", "Server=(embedded);Database=Account1");
        ::setenv("XDG_CONFIG_HOME", File("settings").c_str(), 1);
        SetStationFolder(folder.path);
    }
    ~StartUpInBadFolder() override {
        fs::permissions(folder.path, fs::perms::owner_all);
        SetStationFolder("");
        ::unsetenv("XDG_CONFIG_HOME");
    }

    std::string File(const std::string& name) const { return folder.File(name); }
    /// Gives the folder and its files to the user without rights, if root runs the test.
    void GiveAway() const {
        if (::geteuid() != 0)
            return;
        EXPECT_EQ(::chown(folder.path.c_str(), nobody, nobody), 0);
        for (const char* name : stationFiles)
            EXPECT_EQ(::chown(File(name).c_str(), nobody, nobody), 0);
    }
    void SetPermissions(unsigned ofFolder, unsigned ofFiles) const {
        for (const char* name : stationFiles)
            fs::permissions(File(name), fs::perms(ofFiles));
        fs::permissions(folder.path, fs::perms(ofFolder));
    }
    void ExpectAsNobody(const std::string& text) const {
        const auto start = [] {
            BecomeNobody();
            PrintFirstBox();
        };
        EXPECT_EXIT(start(), testing::ExitedWithCode(0), text + "$");
    }
    static std::string IsReadOnly(const std::string& file) {
        return "The database file " + file +
               ", its folder or its disk is read-only\\. Ask the administrator of the computer to "
               "make them writable for this user, then start the program again\\.";
    }
    /// Starts a copy of the station on another disk, which `spoil` makes unusable.
    void StartOnDisk(const std::function<void(const std::string&)>& spoil) const {
        const std::string disk = File("disk");
        fs::create_directory(disk);
        OwnDisk{.folder = disk, .size = "2m"}.CallAndExit([&] {
            for (const char* name : stationFiles)
                fs::copy_file(File(name), disk + "/" + name);
            spoil(disk);
            SetStationFolder(disk);
            PrintFirstBox();
        });
    }

    FreshFolder folder;
};

TEST_F(StartUpInBadFolder, ItsOwnFolderIsAccepted) {
    GiveAway();
    ExpectAsNobody("the sign-in is shown");
}

TEST_F(StartUpInBadFolder, ReadOnlyFolderIsReported) {
    GiveAway();
    SetPermissions(0555, 0640);
    ExpectAsNobody(IsReadOnly(File("Account1.db")));
}

TEST_F(StartUpInBadFolder, ReadOnlyFolderIsReportedAfterAnInterruptedStation) {
    // It leaves a journal, so that the file is in the mode of the write-ahead log.
    EXPECT_EXIT(PrintFirstBox(), testing::ExitedWithCode(0), "the sign-in is shown");
    for (const char* name : {"Account1.db-wal", "Account1.db-shm"})
        EXPECT_TRUE(fs::remove(File(name)));
    GiveAway();
    SetPermissions(0555, 0640);
    ExpectAsNobody(IsReadOnly(File("Account1.db")));
}

TEST_F(StartUpInBadFolder, FilesThatBelongToAnotherUserAreReported) {
    // Without root there is no other user.
    SetPermissions(0555, ::geteuid() == 0 ? 0644 : 0444);
    ExpectAsNobody(IsReadOnly(File("Account1.db")));
}

TEST_F(StartUpInBadFolder, SecretFilesOfAnotherUserAreReported) {
    SetPermissions(0755, ::geteuid() == 0 ? 0640 : 0200);
    ExpectAsNobody("The file " + File("Config.ini") +
                   " cannot be read\\. Check the rights of this user\\.");
}

TEST_F(StartUpInBadFolder, DatabaseOfAnotherUserIsReported) {
    SetPermissions(0755, ::geteuid() == 0 ? 0640 : 0200);
    fs::permissions(File("Config.ini"), fs::perms(0644));
    ExpectAsNobody("The database file " + File("Account1.db") +
                   " cannot be read\\. Check the rights of this user\\.");
}

TEST_F(StartUpInBadFolder, FolderOfAnotherUserIsReported) {
    SetPermissions(::geteuid() == 0 ? 0700 : 0, 0640);
    ExpectAsNobody("The station folder " + folder.path +
                   " cannot be opened: this user has no rights to it\\. Ask the administrator of "
                   "the computer for these rights, or name another folder with the option "
                   "--station\\.");
}

TEST_F(StartUpInBadFolder, ReadOnlyDiskIsReported) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    const auto protect = [](const std::string& disk) {
        EXPECT_EQ(::mount("tmpfs", disk.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
    };
    EXPECT_EXIT(StartOnDisk(protect), testing::ExitedWithCode(0),
                IsReadOnly(File("disk/Account1.db")) + "$");
}

TEST_F(StartUpInBadFolder, FullDiskIsReported) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    EXPECT_EXIT(StartOnDisk([](const std::string& disk) { FillDisk(disk, 0); }),
                testing::ExitedWithCode(0),
                "The disk that holds the database file " + File("disk/Account1.db") +
                    " is full\\. Free some space on it, then start the program again\\.$");
    EXPECT_EXIT(StartOnDisk([](const std::string&) {}), testing::ExitedWithCode(0),
                "the sign-in is shown$");
}

} // namespace
} // namespace Quillane
