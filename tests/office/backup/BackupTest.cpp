#include "BackupFixture.h"

#include "office/backup/BackupFiles.h"
#include "office/backup/WorkLock.h"
#include "platform/host/BackupRecord.h"
#include "platform/host/StationFile.h"
#include "support/OwnDisk.h"
#include "support/SkipIfMissing.h"

namespace Quillane::Office {
namespace {

namespace fs = std::filesystem;

bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

using Backups = BackupTest;

TEST_F(Backups, IncludeTheJournalInOneFile) {
    Connection open;
    station.Open(open);
    open.Execute("Update Project_Registry Set value = 'Saved last' Where registrykey = "
                 "'CompanyPhone'");
    ASSERT_GT(fs::file_size(Database() + "-wal"), 0U);
    const auto backup = Make();
    ASSERT_TRUE(backup);
    EXPECT_EQ(FilesIn(backups.path).size(), 1U);
    {
        EmbeddedFile copy(backup->file, SQLITE_OPEN_READONLY);
        EXPECT_EQ(copy.FirstText("SELECT value FROM Project_Registry WHERE registrykey = "
                                 "'CompanyPhone'"),
                  "Saved last");
        EXPECT_EQ(FilesIn(backups.path).size(), 1U) << "no journal while it is read";
    }
    EXPECT_EQ(fs::status(backup->file).permissions() & fs::perms::others_all, fs::perms::none);
    EXPECT_EQ(backup->contents.RowsOf("Arrivals"), CountIn(Database(), Arrivals));
    EXPECT_TRUE(backup->notes.empty());
}

TEST_F(Backups, AreNamedByTimeAndNeverReplaceEachOther) {
    const auto first = Make();
    const auto second = Make();
    ASSERT_TRUE(first && second);
    EXPECT_LT(first->file, second->file);
    EXPECT_EQ(BackupsIn(backups.path, "Account1"),
              (std::vector<std::string>{first->file, second->file}));
}

TEST_F(Backups, OldestBeyondTheLimitAreRemovedAfterANewOne) {
    for (const char* name : {"Account1-20260101-000000.db", "Account1-20260102-000000.db",
                             "Account1-20260103-000000.db", "Account2-20260101-000000.db",
                             "Account1-20260101-000000.db.txt", "Account1-before-2.db"})
        backups.Write(name, "old");
    const auto backup = Make(2);
    ASSERT_TRUE(backup);
    EXPECT_EQ(backup->removed,
              (std::vector<std::string>{backups.File("Account1-20260101-000000.db"),
                                        backups.File("Account1-20260102-000000.db")}));
    EXPECT_EQ(FilesIn(backups.path).size(), 5U);
    EXPECT_TRUE(backups.Has("Account1-20260103-000000.db"));
    EXPECT_TRUE(backups.Has("Account2-20260101-000000.db"));
}

// The clock was wrong before: by its name the new backup is the oldest.
TEST_F(Backups, NewOneIsKeptWhateverTheNamesOfTheOthers) {
    backups.Write("Account1-20990101-000000.db", "old");
    const auto backup = Make(1);
    ASSERT_TRUE(backup);
    EXPECT_EQ(BackupsIn(backups.path, "Account1"), std::vector<std::string>{backup->file});
}

TEST_F(Backups, DamagedDatabaseIsNotBackedUpAndNoBackupIsRemoved) {
    backups.Write("Account1-20260101-000000.db", "old");
    backups.Write("Account1-20260102-000000.db", "old");
    EmbeddedFile(Database(), SQLITE_OPEN_READWRITE).Run("PRAGMA journal_mode = DELETE");
    constexpr std::streamoff fifthPage = 4 * 4096;
    Overwrite(Database(), fifthPage, std::string(4096, 'x'));
    const std::string text = FailureOf([&] { Make(1); }).Description();
    EXPECT_TRUE(Says(text, "No backup has been made in " + backups.path)) << text;
    EXPECT_TRUE(Says(text, "The earlier backups have not been changed.")) << text;
    EXPECT_EQ(FilesIn(backups.path).size(), 2U);
    EXPECT_FALSE(ReadBackupRecord(station.folder.path));
}

TEST_F(Backups, CancelledBackupLeavesNoFile) {
    work.Cancel();
    EXPECT_FALSE(Make());
    EXPECT_TRUE(FilesIn(backups.path).empty());
    EXPECT_FALSE(ReadBackupRecord(station.folder.path));
}

TEST_F(Backups, UnfinishedFilesOfKilledBackupsAreRemoved) {
    backups.Write("Account1-20260101-000000.db.part", "x");
    backups.Write("Account1-20260101-000000.db.part-wal", "x");
    backups.Write("other.part", "x");
    ASSERT_TRUE(Make());
    EXPECT_EQ(FilesIn(backups.path).size(), 2U);
    EXPECT_TRUE(backups.Has("other.part"));
}

TEST_F(Backups, UnusableFolderIsNamedInTheMessage) {
    backups.Write("file", "x");
    const auto failure = [&](const std::string& folder) {
        return FailureOf([&] { BackUp({.database = Database(), .folder = folder}, work); })
            .Description();
    };
    EXPECT_EQ(failure(backups.File("usb")),
              "The backup folder " + backups.File("usb") +
                  " does not exist. No backup has been made. Create the folder, connect its "
                  "drive, or name another folder.");
    EXPECT_TRUE(Says(failure(backups.File("file")), "is not a folder"));
    EXPECT_TRUE(Says(failure("/proc"), "The backup folder /proc is not writable: "));
}

TEST_F(Backups, OnlyOneIsMadeAtATime) {
    const WorkLock other(Database());
    EXPECT_TRUE(
        Says(FailureOfMake(), "Another backup or restore of " + Database() + " is running. Wait"));
}

// The state after a process was killed while it created the file.
TEST_F(Backups, LockFileOfAKilledBackupDoesNotBlock) {
    station.folder.Write("Account1.db.lock", "");
    EXPECT_TRUE(Make());
}

TEST_F(Backups, LastSuccessfulOneIsRecordedForTheSignIn) {
    EXPECT_FALSE(ReadBackupRecord(station.folder.path));
    const auto before = std::chrono::floor<std::chrono::seconds>(Clock::now());
    ASSERT_TRUE(Make());
    EXPECT_GE(ReadBackupRecord(station.folder.path).value(), before);
    station.folder.Write("LastBackup", "nonsense");
    EXPECT_FALSE(ReadBackupRecord(station.folder.path));
}

TEST_F(Backups, UnwritableRecordIsReportedButTheBackupIsKept) {
    fs::create_directory(station.folder.File("LastBackup"));
    const auto backup = Make();
    ASSERT_TRUE(backup);
    ASSERT_EQ(backup->notes.size(), 1U);
    EXPECT_TRUE(Says(backup->notes[0], "cannot be stored"));
}

TEST_F(Backups, AreStoredInTheFolderOfTheStationFile) {
    StationFile file;
    EXPECT_EQ(BackupFolderOf(station.folder.path, file), station.folder.File("backups"));
    EXPECT_TRUE(fs::is_directory(station.folder.File("backups")));
    file.BackupFolder = "copies/here";
    EXPECT_EQ(BackupFolderOf(station.folder.path, file), station.folder.File("copies/here"));
    EXPECT_FALSE(station.folder.Has("copies"));
    file.BackupFolder = "/mnt/usb/";
    EXPECT_EQ(BackupFolderOf(station.folder.path, file), "/mnt/usb");
}

// ---- a full disk ----

TEST_F(Backups, FullDiskLeavesNoNewFileAndKeepsTheOldOnes) {
    SKIP_IF_MISSING(OwnDisk::WhyMissing());
    const std::string old = "Account1-20260101-000000.db";
    const auto backUp = [&] {
        backups.Write(old, "old");
        const std::string text = FailureOf([&] { Make(1); }).Description();
        EXPECT_TRUE(Says(text, "No backup has been made in " + backups.path + ": ")) << text;
        EXPECT_TRUE(Says(text, "The disk has too little space: a backup needs about 1 MB. Free "
                               "some space, or name another folder."))
            << text;
        EXPECT_EQ(FilesIn(backups.path), std::set{old});
    };
    EXPECT_EXIT((OwnDisk{.folder = backups.path, .size = "64k"}.CallAndExit(backUp)),
                testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace Quillane::Office
