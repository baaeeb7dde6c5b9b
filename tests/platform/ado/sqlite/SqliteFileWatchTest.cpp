// The file of an open database is moved, deleted, replaced or overwritten.

#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <fstream>
#include <functional>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

constexpr const char* AddRow = "Insert Into Project_Registry Values ('a', 'b')";

class SqliteFileWatchTest : public testing::Test {
protected:
    void SetUp() override {
        folder.RunScript("PRAGMA journal_mode = WAL");
        folder.Open(station);
        ASSERT_TRUE(station.WriteBack());
    }
    fs::path Elsewhere() const { return folder.Folder() / "elsewhere.db"; }
    std::string File() const { return folder.File().string(); }

    void MoveAway() const { fs::rename(File(), Elsewhere()); }
    /// Another file with the same contents.
    void ReplaceByACopy() const {
        fs::copy_file(File(), Elsewhere());
        fs::rename(Elsewhere(), File());
    }
    /// Overwrites the file as "cp" does: the same file with other contents.
    void WriteOver() const {
        std::ifstream copy(Elsewhere(), std::ios::binary);
        std::ofstream(File(), std::ios::binary | std::ios::trunc) << copy.rdbuf();
    }
    static std::string Rows(Connection& connection) {
        return connection.Execute("Select Count(*) From Project_Registry").Fields(0).Text();
    }
    void ExpectRefused(const std::function<void()>& act) const {
        const std::string words = DatabaseFailureOf(act);
        EXPECT_EQ(words,
                  "The database file " + File() +
                      " has been moved, deleted or replaced since this station opened it, so "
                      "nothing is saved any more.\nPut it back with its files -wal and -shm, or "
                      "note down what is on the screen and start the program again.");
    }
    /// Any first statement of a transaction.
    void ExpectTransactionRefused() {
        station.BeginTrans();
        ExpectRefused([&] { station.Execute("Select 1"); });
        station.RollbackTrans();
    }

    EmbeddedFolder folder;
    Connection station;
};

TEST_F(SqliteFileWatchTest, ATransactionIsRefusedIfTheFileIsNotTheOpenedOne) {
    struct Case {
        const char* name;
        std::function<void()> change;
    };
    const Case cases[] = {
        {"moved", [&] { MoveAway(); }},
        {"deleted", [&] { fs::remove(File()); }},
        {"replaced", [&] { ReplaceByACopy(); }},
        {"its log deleted", [&] { fs::remove(File() + "-wal"); }},
        {"the index of its log deleted", [&] { fs::remove(File() + "-shm"); }},
        {"the folder moved", [&] { fs::rename(folder.Folder(), folder.Folder().string() + "x"); }},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        each.change();
        ExpectTransactionRefused();
        ExpectRefused([&] { station.Execute(AddRow); });
        EXPECT_EQ(Rows(station), "0") << "it can still be read";
        fs::remove_all(folder.Folder().string() + "x");
        fs::create_directories(folder.Folder());
        station.Close();
        for (const fs::path& file : {fs::path(File()), Elsewhere()})
            for (const char* ending : {"", "-wal", "-shm"})
                fs::remove(file.string() + ending);
        folder.RunScript("CREATE TABLE Project_Registry (registrykey TEXT, value TEXT)");
        folder.Open(station);
    }
}

TEST_F(SqliteFileWatchTest, ACommitIsRefusedIfTheFileChangesWithinTheTransaction) {
    for (const bool deleted : {false, true}) {
        station.BeginTrans();
        station.Execute(AddRow);
        deleted ? static_cast<void>(fs::remove(File())) : MoveAway();
        ExpectRefused([&] { station.CommitTrans(); });
        station.RollbackTrans();
        EXPECT_EQ(Rows(station), "0");
        if (!deleted)
            fs::rename(Elsewhere(), File());
    }
}

TEST_F(SqliteFileWatchTest, ARestoredFileIsUsedAgain) {
    MoveAway();
    ExpectTransactionRefused();
    fs::rename(Elsewhere(), File());
    station.BeginTrans();
    station.Execute(AddRow);
    station.CommitTrans();
    EXPECT_EQ(Rows(station), "1");
}

TEST_F(SqliteFileWatchTest, AnOverwrittenFileIsRefusedWithinATransaction) {
    fs::copy_file(File(), Elsewhere());
    station.Execute(AddRow);
    ASSERT_TRUE(station.WriteBack());
    WriteOver();
    ExpectTransactionRefused();
    ExpectTransactionRefused();
}

TEST_F(SqliteFileWatchTest, SavesOfOtherStationsAreAccepted) {
    Connection other;
    folder.Open(other);
    const auto save = [](Connection& connection) {
        connection.BeginTrans();
        connection.Execute(AddRow);
        connection.CommitTrans();
    };
    // In every order of two saves and two write-backs.
    const std::function<void()> acts[] = {[&] { save(station); }, [&] { save(other); },
                                          [&] { station.WriteBack(); }, [&] { other.WriteBack(); }};
    int saves = 0;
    for (int order = 0; order < 256; ++order)
        for (int act = order, step = 0; step < 4; ++step, act /= 4) {
            acts[act % 4]();
            saves += act % 4 < 2;
        }
    EXPECT_EQ(Rows(station), std::to_string(saves));
    EXPECT_EQ(Rows(other), std::to_string(saves));
}

TEST_F(SqliteFileWatchTest, ABackupIsAccepted) {
    folder.RunScript("VACUUM INTO '" + Elsewhere().string() + "'");
    folder.RunScript("PRAGMA wal_checkpoint(TRUNCATE)");
    std::ifstream(File(), std::ios::binary).get();
    station.BeginTrans();
    station.Execute(AddRow);
    station.CommitTrans();
    EXPECT_EQ(Rows(station), "1");
}

TEST_F(SqliteFileWatchTest, ALinkToTheFileIsFollowed) {
    station.Close();
    const fs::path data = folder.Folder() / "data";
    fs::create_directory(data);
    fs::rename(File(), data / "mill.db");
    fs::create_symlink(data / "mill.db", File());
    folder.Open(station);
    station.Execute(AddRow);
    EXPECT_TRUE(fs::exists(data / "mill.db-wal"));
    fs::remove(data / "mill.db-wal");
    ExpectTransactionRefused();
}

// The station does not change a new file that another station has created under the same name, not
// even when it ends.
TEST_F(SqliteFileWatchTest, TheEndOfTheStationDoesNotChangeTheNewFile) {
    station.Execute(AddRow);
    ReplaceByACopy();
    for (const char* ending : {"-wal", "-shm"})
        fs::remove(File() + ending);
    Connection other;
    folder.Open(other);
    other.Execute(AddRow);
    other.Execute(AddRow);
    station.Close();
    EXPECT_TRUE(fs::exists(File() + "-wal"));
    Connection third;
    folder.Open(third);
    EXPECT_EQ(Rows(third), Rows(other));
}

} // namespace

} // namespace Quillane
