// A full disk is reported as such for each error code of the engine.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <sys/mount.h>

#include <fstream>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

/// A disk of one megabyte. Only root can mount one.
class SqliteFullDisk : public testing::Test {
protected:
    void SetUp() override {
        disk = folder.Folder() / "disk";
        fs::create_directory(disk);
        if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=1m") != 0)
            GTEST_SKIP() << "this user may not mount a file system: run the test as root";
        isMounted = true;
        fs::copy_file(folder.File(), disk / "Account1.db");
    }
    void TearDown() override {
        if (isMounted)
            ::umount(disk.c_str());
    }
    /// Up to so many bytes.
    void Fill(std::uintmax_t left) const {
        {
            std::ofstream all(disk / "all", std::ios::binary);
            const std::string block(4096, 'x');
            while (all.write(block.data(), 4096).flush()) {
            }
        }
        fs::resize_file(disk / "all", fs::file_size(disk / "all") / 4096 * 4096 - left);
    }
    void Open(Connection& connection) const {
        connection.SetEmbeddedSupport({disk.string()});
        connection.Open(EmbeddedFolder::connectionString);
    }

    EmbeddedFolder folder;
    fs::path disk;
    bool isMounted = false;
};

TEST_F(SqliteFullDisk, IsReportedAtTheOpening) {
    for (const bool hasLog : {false, true}) {
        SCOPED_TRACE(hasLog);
        if (hasLog) {
            // The file is in the mode of the write-ahead log already.
            Connection connection;
            Open(connection);
        }
        for (const std::uintmax_t left : {0, 16'384}) {
            Fill(left);
            Connection connection;
            EXPECT_EQ(DatabaseFailureOf([&] { Open(connection); }),
                      "The disk that holds the database file " + (disk / "Account1.db").string() +
                          " is full. Please make space on it and start the program again.");
            fs::remove(disk / "all");
        }
    }
}

TEST_F(SqliteFullDisk, IsReportedForARow) {
    Connection connection;
    Open(connection);
    Fill(0);
    const std::string row =
        "Insert Into Project_Registry Values ('a', '" + std::string(100'000, 'x') + "')";
    EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute(row); }), "database or disk is full");
    fs::remove(disk / "all");
    connection.Execute(row);
    EXPECT_EQ(DatabaseFailureOf([&] { connection.Execute("Select x From Nowhere"); }),
              "no such table: Nowhere")
        << "other refusals keep their words";
}

} // namespace

} // namespace Quillane
