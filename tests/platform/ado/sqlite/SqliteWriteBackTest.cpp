// After the journal has been written back, a copy of the file is complete.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

constexpr const char* AddRow = "Insert Into Project_Registry Values ('a', 'b')";

class SqliteWriteBack : public testing::Test {
protected:
    void Open(Connection& connection, std::function<void()> afterChange = {}) const {
        EmbeddedSupport support = folder.Support();
        support.afterChange = std::move(afterChange);
        connection.SetEmbeddedSupport(support);
        connection.Open(EmbeddedFolder::connectionString);
    }
    /// Queries a copy of the file without its journal.
    std::string RowsInACopy() const {
        const fs::path copies = folder.Folder() / "copies";
        fs::remove_all(copies);
        fs::create_directory(copies);
        fs::copy_file(folder.File(), copies / "Account1.db");
        Connection copy;
        copy.SetEmbeddedSupport({copies.string()});
        copy.Open(EmbeddedFolder::connectionString);
        return copy.Execute("Select Count(*) From Project_Registry").Fields(0).Text();
    }
    std::uintmax_t SizeOfLog() const { return fs::file_size(folder.File().string() + "-wal"); }
    bool HasJournal() const {
        return fs::exists(folder.File().string() + "-wal") ||
               fs::exists(folder.File().string() + "-shm");
    }

    EmbeddedFolder folder;
    Connection station;
};

TEST_F(SqliteWriteBack, WritesTheJournalIntoTheFile) {
    Open(station);
    station.Execute(AddRow);
    EXPECT_EQ(RowsInACopy(), "0");
    EXPECT_TRUE(station.WriteBack());
    EXPECT_EQ(RowsInACopy(), "1");
    EXPECT_EQ(SizeOfLog(), 0U);
}

TEST_F(SqliteWriteBack, DoesNotWait) {
    Open(station);
    Connection other;
    Open(other);
    station.Execute(AddRow);
    other.BeginTrans();
    other.Execute(AddRow);
    EXPECT_FALSE(station.WriteBack());
    other.CommitTrans();
    EXPECT_TRUE(station.WriteBack());
    EXPECT_EQ(RowsInACopy(), "2");
    // Other statements still wait.
    EXPECT_EQ(station.Execute("Select Count(*) From Project_Registry").Fields(0).Text(), "2");
}

TEST_F(SqliteWriteBack, DoesNotAffectAnOpenTransaction) {
    Open(station);
    station.BeginTrans();
    EXPECT_FALSE(station.WriteBack());
    station.Execute(AddRow);
    EXPECT_FALSE(station.WriteBack());
    station.RollbackTrans();
    EXPECT_TRUE(station.WriteBack());
    EXPECT_EQ(RowsInACopy(), "0");
}

TEST_F(SqliteWriteBack, IsRequestedAfterEachStoredChange) {
    int changes = 0;
    Open(station, [&] { ++changes; });
    EXPECT_EQ(changes, 0);
    station.Execute("Select Count(*) From Project_Registry");
    EXPECT_EQ(changes, 0);
    station.Execute(AddRow);
    EXPECT_EQ(changes, 1);
    station.BeginTrans();
    station.Execute(AddRow);
    station.Execute(AddRow);
    EXPECT_EQ(changes, 1);
    station.CommitTrans();
    EXPECT_EQ(changes, 2);
    station.BeginTrans();
    station.Execute(AddRow);
    station.RollbackTrans();
    EXPECT_EQ(changes, 2);
    DatabaseFailureOf([&] { station.Execute("Insert Into Nowhere Values (1)"); });
    EXPECT_EQ(changes, 2);
}

TEST_F(SqliteWriteBack, TheLastStationToCloseLeavesOnlyTheFile) {
    Open(station);
    Connection other;
    Open(other);
    station.Execute(AddRow);
    station.Close();
    EXPECT_TRUE(HasJournal());
    other.Execute(AddRow);
    other.Close();
    EXPECT_FALSE(HasJournal());
    EXPECT_EQ(RowsInACopy(), "2");
}

} // namespace

} // namespace Quillane
