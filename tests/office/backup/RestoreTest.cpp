#include "office/backup/Restore.h"

#include "BackupFixture.h"

#include "platform/runtime/Numbers.h"
#include "setup/SchemaUpgrade.h"

#include <csignal>

#include <sys/resource.h>

namespace Quillane::Office {
namespace {

namespace fs = std::filesystem;

bool Says(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class Restore : public BackupTest {
protected:
    Restore() {
        copy = Make()->file;
        EmbeddedFile file(Database(), SQLITE_OPEN_READWRITE);
        AddArrival(file, 2000);
        old = file.FirstNumber(Arrivals);
    }
    std::string Put(const std::string& file) {
        return Restoration(Database(), file, work).PutInPlace();
    }
    std::string Refusal(const std::string& file) {
        const std::string text = FailureOf([&] { Put(file); }).Description();
        EXPECT_EQ(CountIn(Database(), Arrivals), old) << "the database is unchanged";
        EXPECT_FALSE(station.folder.Has("Account1.db.restore"));
        return text;
    }
    /// A damaged copy of the backup.
    std::string Spoilt(const std::function<void(const std::string&)>& spoil) {
        std::string file = backups.File("spoilt.db");
        fs::copy_file(copy, file, fs::copy_options::overwrite_existing);
        spoil(file);
        return file;
    }

    std::string copy;
    long old = 0;
};

/// No file can grow beyond this number of bytes: a write beyond it fails as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(Restore, ReplacesTheDatabaseAndIsUndoneWithTheKeptFile) {
    const std::string kept = Put(copy);
    EXPECT_EQ(CountIn(Database(), Arrivals), old - 1);
    EXPECT_EQ(CountIn(kept, Arrivals), old);
    EXPECT_TRUE(Says(kept, station.folder.File("Account1-before-restore-"))) << kept;
    const std::string keptNext = Put(kept);
    EXPECT_EQ(CountIn(Database(), Arrivals), old);
    EXPECT_NE(keptNext, kept);
    Connection connection;
    station.Open(connection);
}

TEST_F(Restore, KeepsTheJournalOfTheOldDatabase) {
    {
        // The state after a power failure: the last session has not written its journal back.
        EmbeddedFile cut(Database(), SQLITE_OPEN_READWRITE);
        cut.LeaveJournal();
        cut.Run("PRAGMA journal_mode = WAL");
        AddArrival(cut, 2001);
    }
    ASSERT_GT(fs::file_size(Database() + "-wal"), 0U);
    const std::string kept = Put(copy);
    EXPECT_EQ(CountIn(kept, Arrivals), old + 1);
    EXPECT_FALSE(station.folder.Has("Account1.db-wal"));
    EXPECT_EQ(CountIn(Database(), Arrivals), old - 1);
}

TEST_F(Restore, IsRefusedWhileAStationHasTheFileOpen) {
    Connection open;
    station.Open(open);
    const std::string text = Refusal(copy);
    EXPECT_EQ(text, "The database " + Database() +
                        " is in use. Nothing has been changed. Close every station and office "
                        "that uses it, then try again.");
    open.Execute("Delete From Arrivals Where ArrivalID = 2000");
}

TEST_F(Restore, IsRefusedIfAStationOpensTheFileAfterTheCheck) {
    Restoration restoration(Database(), copy, work);
    Connection open;
    station.Open(open);
    EXPECT_TRUE(Says(FailureOf([&] { restoration.PutInPlace(); }).Description(), "is in use."));
    EXPECT_EQ(FilesIn(station.folder.path),
              (std::set<std::string>{"Account1.db", "Account1.db-wal", "Account1.db-shm",
                                     "Account1.db.lock", "Account1.db.restore", "Config.ini",
                                     "LastBackup"}));
}

TEST_F(Restore, RefusesFilesThatAreNotStationDatabases) {
    EXPECT_EQ(Refusal(backups.File("none.db")),
              "The file " + backups.File("none.db") + " does not exist. Check the path.");
    EXPECT_TRUE(Says(Refusal(backups.path), "is not a file."));
    EXPECT_TRUE(Says(Refusal(Database()), "is the database itself."));
    backups.Write("empty.db", "");
    EXPECT_TRUE(Says(Refusal(backups.File("empty.db")), "is empty; it is not a database."));
    backups.Write("text.db", std::string(5000, 'a'));
    EXPECT_EQ(Refusal(backups.File("text.db")),
              "The file " + backups.File("text.db") + " is not a database.");
    EmbeddedFile(backups.File("other.db"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)
        .Run("CREATE TABLE Cows (Id INTEGER)");
    EXPECT_TRUE(Says(Refusal(backups.File("other.db")), "is a database of another program"));
}

TEST_F(Restore, RefusesATruncatedCopy) {
    const auto size = fs::file_size(copy);
    for (const auto length : {size - 1, size - 4096, size / 2, std::uintmax_t{4096}})
        EXPECT_TRUE(
            Says(Refusal(Spoilt([&](const std::string& file) { fs::resize_file(file, length); })),
                 "is not complete: it has " + std::to_string(length) + " of " +
                     std::to_string(size) + " bytes."));
}

TEST_F(Restore, RefusesADamagedCopy) {
    const std::string text = Refusal(Spoilt([](const std::string& file) {
        constexpr std::streamoff fifthPage = 4 * 4096;
        Overwrite(file, fifthPage, std::string(4096, 'x'));
    }));
    EXPECT_TRUE(Says(text, "is damaged (")) << text;
}

TEST_F(Restore, RefusesANewerOrUnreadableSchemaNumber) {
    const auto withSchema = [&](const char* statement) {
        return Refusal(Spoilt([&](const std::string& file) {
            EmbeddedFile(file, SQLITE_OPEN_READWRITE).Run(statement);
        }));
    };
    EXPECT_TRUE(Says(withSchema("UPDATE StationSchema SET SchemaVersion = 99"),
                     "is 99, newer than that of this program (" +
                         NumberText(SchemaVersionOfProgram()) + ")"));
    EXPECT_TRUE(Says(withSchema("DELETE FROM StationSchema"), "cannot be read"));
    EXPECT_TRUE(
        Says(withSchema("UPDATE StationSchema SET SchemaVersion = 'two'"), "cannot be read"));
}

TEST_F(Restore, RefusesACopyWithAJournal) {
    const std::string file = Spoilt([](const std::string&) {});
    backups.Write("spoilt.db-wal", "changes");
    EXPECT_TRUE(Says(Refusal(file), "has a journal, " + file + "-wal"));
}

TEST_F(Restore, AcceptsAnOlderSchemaThatTheStationUpgrades) {
    const std::string file = Spoilt([](const std::string& older) {
        EmbeddedFile(older, SQLITE_OPEN_READWRITE)
            .Run("UPDATE StationSchema SET SchemaVersion = 1");
    });
    Put(file);
    EXPECT_EQ(CountIn(Database(), "SELECT SchemaVersion FROM StationSchema"), 1);
}

TEST_F(Restore, DamagedDatabaseIsKeptWithItsJournal) {
    station.folder.Write("Account1.db", "nothing that can be read");
    station.folder.Write("Account1.db-wal", "nor this");
    const std::string kept = Put(copy);
    EXPECT_EQ(CountIn(Database(), Arrivals), old - 1);
    std::ifstream file(kept);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "nothing that can be read");
    EXPECT_TRUE(fs::exists(kept + "-wal"));
    EXPECT_FALSE(station.folder.Has("Account1.db-wal"));
    Connection connection;
    station.Open(connection);
}

TEST_F(Restore, MissingDatabaseIsCreated) {
    fs::remove(Database());
    EXPECT_EQ(Put(copy), "");
    EXPECT_EQ(CountIn(Database(), Arrivals), old - 1);
}

TEST_F(Restore, KeepsTheFilePermissionsOfTheDatabase) {
    fs::permissions(Database(), fs::perms(0640));
    Put(copy);
    EXPECT_EQ(fs::status(Database()).permissions(), fs::perms(0640));
}

TEST_F(Restore, FullDiskChangesNothing) {
    const auto size = fs::file_size(copy);
    for (const auto bytes : {std::uintmax_t{0}, std::uintmax_t{4096}, size / 2, size - 1}) {
        std::string text;
        {
            const FullDisk disk(bytes);
            text = FailureOf([&] { Put(copy); }).Description();
        }
        EXPECT_TRUE(Says(text, "The backup cannot be copied into the folder of the database: "))
            << text;
        EXPECT_TRUE(Says(text, "the free space on its disk.")) << text;
        EXPECT_EQ(CountIn(Database(), Arrivals), old);
        EXPECT_FALSE(station.folder.Has("Account1.db.restore"));
    }
    Put(copy);
    EXPECT_EQ(CountIn(Database(), Arrivals), old - 1);
}

TEST_F(Restore, KeptDatabasesAreListedByTheirTimes) {
    EXPECT_TRUE(KeptByRestores(Database()).empty());
    const std::string kept = Put(copy);
    const std::string keptNext = Put(kept);
    EXPECT_EQ(KeptByRestores(Database()), (std::vector<std::string>{kept, keptNext}));
}

TEST_F(Restore, CheckOfACopyChangesNothing) {
    const auto files = FilesIn(station.folder.path);
    Connection open;
    station.Open(open);
    EXPECT_EQ(CheckCopy(Database(), copy, work).RowsOf("Arrivals"), old - 1);
    open.Close();
    EXPECT_EQ(FilesIn(station.folder.path), files);
    EXPECT_TRUE(Says(FailureOf([&] { CheckCopy(Database(), Database(), work); }).Description(),
                     "is the database itself. Give the path of a backup."));
    backups.Write("text.db", std::string(5000, 'a'));
    EXPECT_TRUE(
        Says(FailureOf([&] { CheckCopy(Database(), backups.File("text.db"), work); }).Description(),
             "is not a database."));
}

TEST_F(Restore, CancelledRestoreChangesNothing) {
    work.Cancel();
    EXPECT_THROW(Put(copy), Cancelled);
    EXPECT_EQ(CountIn(Database(), Arrivals), old);
    EXPECT_FALSE(station.folder.Has("Account1.db.restore"));
}

TEST_F(Restore, RemovesTheSecondNameLeftByAKilledRestore) {
    const std::string second = station.folder.File("Account1-before-restore-20260101-000000.db");
    fs::create_hard_link(Database(), second);
    fs::copy_file(copy, station.folder.File("Account1-before-restore-20260102-000000.db"));
    EXPECT_TRUE(Says(Refusal(second), "is the database itself."));
    Put(copy);
    EXPECT_FALSE(fs::exists(second));
    EXPECT_TRUE(station.folder.Has("Account1-before-restore-20260102-000000.db"));
}

} // namespace
} // namespace Quillane::Office
