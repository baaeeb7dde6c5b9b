// Restores that are killed at random moments: the station always starts with a complete database.

#include "BackupFixture.h"
#include "support/KilledProcess.h"

#include <QProcess>

#include <chrono>
#include <iostream>
#include <random>
#include <thread>

namespace Quillane::Office {
namespace {

namespace fs = std::filesystem;

class KilledRestores : public BackupTest {
protected:
    /// A backup with this number of additional arrivals.
    std::string CopyWith(int arrivals) {
        EmbeddedFile file(Database(), SQLITE_OPEN_READWRITE);
        file.Run("BEGIN");
        for (int id = 0; id < arrivals; ++id)
            AddArrival(file, 3000 + id);
        file.Run("COMMIT");
        return Make()->file;
    }
    void Begin(QProcess& restore, const std::string& copy) {
        restore.start(QUILLANE_OFFICE, {"--station", QString::fromStdString(station.folder.path),
                                        "--restore", QString::fromStdString(copy), "--yes"});
        ASSERT_TRUE(restore.waitForStarted());
    }
    std::chrono::microseconds TimeOf(const std::string& copy) {
        const auto begun = std::chrono::steady_clock::now();
        QProcess restore;
        Begin(restore, copy);
        EXPECT_TRUE(restore.waitForFinished(60'000));
        EXPECT_EQ(restore.exitCode(), 0) << restore.readAllStandardError().toStdString();
        return std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now() - begun);
    }
    /// The number of arrivals that a station finds at its start.
    long ArrivalsAtStart() {
        Connection connection;
        station.Open(connection);
        EXPECT_EQ(connection.Execute("PRAGMA integrity_check").Fields(0).Text(), "ok");
        EXPECT_EQ(connection.Execute("PRAGMA foreign_key_check").RecordCount(), 0);
        return connection.Execute("Select Count(*) From Arrivals").Fields(0).Long();
    }
    /// Removes the kept files, as the owner of the station does from time to time.
    void RemoveKept() {
        for (const auto& entry : fs::directory_iterator(station.folder.path))
            if (entry.path().filename().string().starts_with("Account1-before-restore-"))
                fs::remove(entry.path());
    }
};

TEST_F(KilledRestores, LeaveTheOldDatabaseOrTheBackupComplete) {
    const std::string small = Make()->file;
    const std::string large = CopyWith(2000);
    const long few = CountIn(small, Arrivals);
    const long many = CountIn(large, Arrivals);
    const std::chrono::microseconds length = std::max(TimeOf(small), TimeOf(large));
    std::mt19937 chance(std::random_device{}());
    std::uniform_int_distribution<long> moment(0, length.count());
    long now = ArrivalsAtStart();
    int replaced = 0;
    for (int round = 0; round < RoundsOf("QUILLANE_KILLS", 10); ++round) {
        QProcess restore;
        Begin(restore, now == few ? large : small);
        std::this_thread::sleep_for(std::chrono::microseconds(moment(chance)));
        ASSERT_NO_FATAL_FAILURE(Kill(restore)) << "in round " << round;
        const long found = ArrivalsAtStart();
        ASSERT_TRUE(found == few || found == many) << found << " in round " << round;
        replaced += found != now ? 1 : 0;
        now = found;
        RemoveKept();
    }
    std::cout << replaced << " of the killed restores had replaced the database\n";
    EXPECT_NE(TimeOf(now == few ? large : small).count(), 0)
        << "a restore that is not killed succeeds";
}

} // namespace
} // namespace Quillane::Office
