#include "platform/ado/EmbeddedFolder.h"
#include "support/FailureOf.h"

#include <fstream>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

class SqliteFile : public testing::Test {
protected:
    /// The failure of opening, which must name the file and leave the connection closed.
    std::string OpeningFailure(std::string_view database = "Account1") {
        Connection connection;
        connection.SetEmbeddedSupport(
            {folder.Folder().string(), {}, std::chrono::milliseconds(20)});
        const std::string words = DatabaseFailureOf([&] {
            connection.Open("Driver=SQL Server;Server=(embedded);Database=" +
                            std::string(database));
        });
        EXPECT_NE(words.find((folder.Folder() / database).string() + ".db"), std::string::npos)
            << words;
        EXPECT_EQ(connection.State(), 0);
        return words;
    }

    static bool Says(const std::string& words, std::string_view part) {
        return words.find(part) != std::string::npos;
    }

    void Overwrite(std::string_view content) {
        std::ofstream(folder.File(), std::ios::trunc) << content;
    }

    EmbeddedFolder folder;
};

TEST_F(SqliteFile, MustExistAndIsNotCreatedByOpening) {
    EXPECT_TRUE(Says(OpeningFailure("Account2"), "does not exist"));
    EXPECT_FALSE(fs::exists(folder.Folder() / "Account2.db"));
}

TEST_F(SqliteFile, MustNotBeAFolder) {
    fs::create_directory(folder.Folder() / "Account3.db");
    EXPECT_TRUE(Says(OpeningFailure("Account3"), "is not a file"));
}

TEST_F(SqliteFile, MustNotBeEmpty) {
    Overwrite("");
    EXPECT_TRUE(Says(OpeningFailure(), "is empty"));
    EXPECT_EQ(fs::file_size(folder.File()), 0U);
}

TEST_F(SqliteFile, MustBeADatabase) {
    const std::string content(5000, 'x');
    Overwrite(content);
    EXPECT_TRUE(Says(OpeningFailure(), "is not a database"));
    EXPECT_EQ(fs::file_size(folder.File()), content.size());
}

TEST_F(SqliteFile, MustBeWritable) {
    fs::permissions(folder.File(), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_TRUE(Says(OpeningFailure(), "is read-only"));
}

// It contains the hashes of passwords.
TEST_F(SqliteFile, IsRestrictedToOwnerAndGroupWhenItIsOpened) {
    using fs::perms;
    constexpr perms owner = perms::owner_read | perms::owner_write;
    struct Case {
        perms before, after;
    };
    constexpr Case cases[] = {
        {owner | perms::group_read | perms::others_read, owner | perms::group_read},
        {owner | perms::others_read | perms::others_exec, owner},
        {owner | perms::group_read | perms::group_write,
         owner | perms::group_read | perms::group_write},
        // A file that others may write is shared on purpose.
        {owner | perms::others_read | perms::others_write,
         owner | perms::others_read | perms::others_write},
    };
    for (const Case& each : cases) {
        fs::permissions(folder.File(), each.before);
        Connection connection;
        folder.Open(connection);
        EXPECT_EQ(fs::status(folder.File()).permissions(), each.after);
        EXPECT_EQ(fs::status(folder.File().string() + "-wal").permissions(), each.after);
    }
}

TEST_F(SqliteFile, IsWaitedForAtMostForTheBusyWait) {
    Connection holder;
    folder.Open(holder);
    holder.Execute("PRAGMA locking_mode=EXCLUSIVE");
    holder.BeginTrans();
    holder.Execute("Insert Into Project_Registry Values ('a', 'b')");
    EXPECT_TRUE(Says(OpeningFailure(), "is locked by another program"));
    holder.CommitTrans();
}

/// Replaces the file by a copy while a station waits for its lock.
class ReplacingWait : public LockWait {
public:
    ReplacingWait(Connection& holder, const fs::path& file) : holder_(holder), file_(file) {}
    bool GoOn(std::chrono::milliseconds) override {
        fs::copy_file(file_, file_.string() + ".copy");
        fs::rename(file_.string() + ".copy", file_);
        holder_.RollbackTrans();
        holder_.Close();
        return true;
    }

private:
    Connection& holder_;
    fs::path file_;
};

// The station would otherwise continue to work in the old file, which has no name any more.
TEST_F(SqliteFile, ReplacedWhileItIsBeingOpenedIsRefused) {
    Connection holder;
    folder.Open(holder);
    holder.Execute("PRAGMA locking_mode=EXCLUSIVE");
    holder.BeginTrans();
    holder.Execute("Insert Into Project_Registry Values ('a', 'b')");
    Connection station;
    station.SetEmbeddedSupport({.folder = folder.Folder().string(), .waitForLock = [&] {
                                    return std::make_unique<ReplacingWait>(holder, folder.File());
                                }});
    EXPECT_EQ(DatabaseFailureOf([&] { station.Open(EmbeddedFolder::connectionString); }),
              "The database file " + folder.File().string() +
                  " was replaced while it was being opened. Please start the program again.");
}

TEST_F(SqliteFile, MayBeInAFolderWithNonAsciiLetters) {
    const fs::path inner = folder.Folder() / "کانٹا Müller";
    fs::create_directory(inner);
    fs::copy_file(folder.File(), inner / "Account1.db");
    Connection connection;
    connection.SetEmbeddedSupport({inner.string(), {}});
    connection.Open(EmbeddedFolder::connectionString);
    EXPECT_EQ(connection.State(), 1);
}

struct StringCase {
    std::string_view text;
    std::string_view words;
};

TEST(ConnectionOpen, RefusesAStringWithoutServerOrDatabase) {
    const StringCase cases[] = {
        {"", "names no server"},
        {"Driver=SQL Server;Database=Account1", "names no server"},
        {"Driver=SQL Server;Server=(embedded)", "names no database"},
    };
    for (const StringCase& item : cases) {
        Connection connection;
        const std::string words = DatabaseFailureOf([&] { connection.Open(item.text); });
        EXPECT_NE(words.find(item.words), std::string::npos) << words;
        EXPECT_EQ(connection.State(), 0);
    }
}

} // namespace

} // namespace Quillane
