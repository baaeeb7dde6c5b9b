#include "office/commands/BackupCommands.h"

#include "platform/host/StationFile.h"
#include "platform/runtime/LongWork.h"
#include "station/StationDatabase.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace Quillane::Office {
namespace {

class BackupCommands : public testing::Test {
protected:
    BackupCommands() { WriteConfig("Server=(embedded);Database=Account1"); }
    ~BackupCommands() override { TheStation() = {}; }

    void WriteConfig(const std::string& text) {
        station.folder.Write("Config.ini", "\"" + text + "\"");
    }
    ExitCode Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "quillane-office");
        out.str("");
        err.str("");
        const Request request = ReadArguments(arguments);
        EXPECT_EQ(request.fault, "");
        Terminal terminal{.in = in,
                          .out = out,
                          .err = err,
                          .password = {},
                          .confirm = [&](const std::string&) { return confirms; },
                          .runLong = [&](const LongTask& task) { task(work); }};
        return request.act == Request::Act::Backup
                   ? RunBackup(station.folder.path, request, terminal)
                   : RunRestore(station.folder.path, request, terminal);
    }
    /// The one file in a folder.
    static std::string OnlyFile(const std::string& folder) {
        const std::filesystem::directory_iterator files(folder);
        EXPECT_EQ(std::distance(begin(files), end(files)), 1);
        return std::filesystem::directory_iterator(folder)->path().string();
    }
    std::string Made() {
        EXPECT_EQ(Run({"--backup"}), ExitCode::Done);
        return OnlyFile(station.folder.File("backups"));
    }

    StationDatabase station;
    LongWork work;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    bool confirms = false;
};

TEST_F(BackupCommands, BackupReportsItsContents) {
    const std::string file = Made();
    const std::string day = station
                                .Rows("SELECT substr(max(ArrivalDate), 1, 10) FROM Arrivals WHERE "
                                      "ArrivalID = 1042")
                                .at(0)
                                .at(0)
                                .Text();
    EXPECT_EQ(out.str(), "Backup " + file + ": 12 arrivals, the last one 1042 of " + day + ".\n");
    EXPECT_EQ(err.str(), "");
}

TEST_F(BackupCommands, FolderAndNumberDefaultToTheStationFile) {
    const FreshFolder disk;
    TheStation().BackupFolder = disk.path;
    TheStation().BackupsKept = 1;
    EXPECT_EQ(Run({"--backup"}), ExitCode::Done);
    const std::string first = OnlyFile(disk.path);
    EXPECT_EQ(Run({"--backup"}), ExitCode::Done);
    const std::string second = OnlyFile(disk.path);
    EXPECT_NE(out.str().find("Removed " + first + ".\n"), std::string::npos) << out.str();
    EXPECT_EQ(Run({"--backup", "--keep", "2"}), ExitCode::Done);
    EXPECT_TRUE(std::filesystem::exists(second));
    const FreshFolder other;
    EXPECT_EQ(Run({"--backup", other.path}), ExitCode::Done);
    OnlyFile(other.path);
}

TEST_F(BackupCommands, DatabaseOnAServerIsBackedUpThere) {
    WriteConfig("Server=books;Database=Account1;UID=a;PWD=b");
    EXPECT_EQ(Run({"--backup"}), ExitCode::Done);
    EXPECT_EQ(out.str(), "The database is on a database server. Its owner makes the backups "
                         "there; nothing needs to be done on this station.\n");
    EXPECT_EQ(Run({"--restore", "x"}), ExitCode::Refused);
}

TEST_F(BackupCommands, CancelledBackupIsReported) {
    work.Cancel();
    EXPECT_EQ(Run({"--backup"}), ExitCode::Cancelled);
    EXPECT_EQ(err.str(), "Cancelled. Nothing has been changed.\n");
}

TEST_F(BackupCommands, RestoreAsksForConfirmation) {
    const std::string copy = Made();
    station.Run("DELETE FROM Arrivals WHERE ArrivalID NOT IN (SELECT ArrivalId FROM ArrivalsBody)");
    EXPECT_EQ(Run({"--restore", copy}), ExitCode::NotConfirmed);
    EXPECT_EQ(err.str(), "Nothing has been changed. Answer yes, or use --yes.\n");
}

TEST_F(BackupCommands, RestoreOnANewComputerCreatesTheDatabase) {
    const std::string copy = Made();
    const FreshFolder fresh;
    const Request request = ReadArguments({"quillane-office", "--restore", copy, "--yes"});
    Terminal terminal{.in = in,
                      .out = out,
                      .err = err,
                      .password = {},
                      .confirm = {},
                      .runLong = [&](const LongTask& task) { task(work); }};
    EXPECT_EQ(RunRestore(fresh.path, request, terminal), ExitCode::Done);
    EXPECT_EQ(LookAtEmbeddedDatabase(fresh.File("Account1.db")).kind,
              EmbeddedDatabase::Kind::OfStations);
}

} // namespace
} // namespace Quillane::Office
