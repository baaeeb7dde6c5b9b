// A full disk is reported as such for each error code of the engine.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"
#include "support/OwnDisk.h"
#include "support/SkipIfMissing.h"

#include <functional>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

/// A database on a disk of one megabyte.
class SqliteFullDisk : public testing::Test {
protected:
    void SetUp() override {
        SKIP_IF_MISSING(OwnDisk::WhyMissing());
        fs::create_directory(disk);
    }
    /// In a child process, which is the only one that sees the disk.
    [[noreturn]] void OnDisk(const std::function<void()>& action) const {
        OwnDisk{.folder = disk, .size = "1m"}.CallAndExit([&] {
            fs::copy_file(folder.File(), disk / "Account1.db");
            action();
        });
    }
    void Open(Connection& connection) const {
        connection.SetEmbeddedSupport({disk.string()});
        connection.Open(EmbeddedFolder::connectionString);
    }

    EmbeddedFolder folder;
    const fs::path disk = folder.Folder() / "disk";
};

TEST_F(SqliteFullDisk, IsReportedAtTheOpening) {
    // With the log the file is in the mode of the write-ahead log already.
    for (const bool hasLog : {false, true}) {
        for (const std::uintmax_t left : {0, 16'384}) {
            const auto openOnFullDisk = [&] {
                if (hasLog) {
                    Connection connection;
                    Open(connection);
                }
                FillDisk(disk, left);
                Connection connection;
                EXPECT_EQ(DatabaseFailureOf([&] { Open(connection); }),
                          "The disk that holds the database file " +
                              (disk / "Account1.db").string() +
                              " is full. Free some space on it, then start the program again.");
            };
            EXPECT_EXIT(OnDisk(openOnFullDisk), testing::ExitedWithCode(0), "")
                << hasLog << ' ' << left;
        }
    }
}

TEST_F(SqliteFullDisk, IsReportedForARow) {
    const auto addRow = [&] {
        Connection connection;
        Open(connection);
        const fs::path rest = FillDisk(disk, 0);
        const std::string row =
            "Insert Into Project_Registry Values ('a', '" + std::string(100'000, 'x') + "')";
        EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute(row); }), "database or disk is full");
        fs::remove(rest);
        connection.Execute(row);
        EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute("Select x From Nowhere"); }),
                  "no such table: Nowhere")
            << "other refusals keep their texts";
    };
    EXPECT_EXIT(OnDisk(addRow), testing::ExitedWithCode(0), "");
}

} // namespace

} // namespace Quillane
