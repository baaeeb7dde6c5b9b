// Backups at random moments while two stations save as fast as they can.

#include "BackupFixture.h"

#include "office/backup/Restore.h"
#include "weighment/StationProcess.h"

#include <iostream>
#include <random>

namespace Quillane::Office {
namespace {

using Testing::Station;

/// Selects incomplete arrivals of the two stations: the driver is "east-17", the bilty is the
/// number of lines, and the net weights add up to 1000 plus the serial, minus the serial modulo 7.
constexpr const char* TornArrivals =
    "SELECT count(*) FROM Arrivals A LEFT JOIN (SELECT ArrivalId, count(*) Lines, "
    "min(BiltyNo) Bilty, min(DriverName) Driver, max(DriverName) OtherDriver, "
    "max(VehicleNo) Station, CAST(substr(min(DriverName), 6) AS INTEGER) Serial, "
    "CAST(round(sum(NetWeight), 0) AS INTEGER) Net FROM ArrivalsBody GROUP BY ArrivalId) B "
    "ON B.ArrivalId = A.ArrivalID WHERE A.ArrivalID > 1042 AND (B.Lines IS NULL OR "
    "B.Lines <> CAST(B.Bilty AS INTEGER) OR B.Driver <> B.OtherDriver OR "
    "B.Net <> 1000 + B.Serial - B.Serial % 7 OR "
    "A.SellerId <> CASE B.Station WHEN 'east' THEN '6010001' ELSE '6010002' END)";

class BackupsWhileStationsSave : public BackupTest {
protected:
    static void TakeDownAll(Station& saving) {
        saving.Process().waitForReadyRead(0);
        while (saving.HasLine())
            saving.TakeDown(saving.NextLine());
    }
    void ExpectWhole(const std::string& file, const std::set<int>& savedBefore) {
        EmbeddedFile copy(file, SQLITE_OPEN_READONLY);
        ASSERT_EQ(copy.FirstText("PRAGMA integrity_check"), "ok");
        ASSERT_EQ(copy.FirstText("PRAGMA foreign_key_check"), "");
        ASSERT_EQ(copy.FirstNumber(TornArrivals), 0);
        // The numbers have no gaps, and every reported arrival is stored.
        const long count = copy.FirstNumber("SELECT count(*) FROM Arrivals WHERE ArrivalID > 1042");
        if (!savedBefore.empty()) {
            ASSERT_GE(count, static_cast<long>(savedBefore.size()));
            ASSERT_GE(copy.FirstNumber("SELECT max(ArrivalID) FROM Arrivals"),
                      *savedBefore.rbegin());
        }
        ASSERT_EQ(count, copy.FirstNumber("SELECT max(ArrivalID) - 1042 FROM Arrivals"));
    }
    /// After a restore the database has the contents of the backup, and a station can open it.
    void ExpectRestored(const std::string& file) {
        StationDatabase other;
        const std::string database = other.folder.File("Account1.db");
        Restoration(database, file, work).PutInPlace();
        Connection connection;
        other.Open(connection);
        EXPECT_EQ(connection.Execute("Select Count(*) From Arrivals").Fields(0).Long(),
                  CountIn(file, Arrivals));
    }
};

TEST_F(BackupsWhileStationsSave, ContainEveryArrivalWithItsLines) {
    constexpr int Endless = 1'000'000;
    constexpr int RoundsOfOneDatabase = 100;
    std::mt19937 chance(std::random_device{}());
    std::uniform_int_distribution<int> moment(0, 30);
    long savedMeanwhile = 0; ///< from the first to the last backup of each database
    const int rounds = RoundsOf("QUILLANE_BACKUPS", 6);
    for (int done = 0; done < rounds;) {
        StationDatabase saved;
        FreshFolder copies;
        long atLastBackup = 0;
        Station east(saved, "east", "6010001", 3, Endless);
        Station west(saved, "west", "6010002", 2, Endless);
        east.Go();
        west.Go();
        east.Listen(1);
        west.Listen(1);
        for (int round = 0; round < RoundsOfOneDatabase && done < rounds; ++round, ++done) {
            east.Process().waitForReadyRead(moment(chance));
            TakeDownAll(east);
            TakeDownAll(west);
            std::set<int> ids;
            for (const Station* saving : {&east, &west})
                for (const auto& [id, serial] : saving->Saved())
                    ids.insert(id);
            const auto backup = BackUp(
                {.database = saved.folder.File("Account1.db"), .folder = copies.path, .keep = 3},
                work);
            ASSERT_TRUE(backup);
            ExpectWhole(backup->file, ids);
            const auto files = FilesIn(copies.path);
            ASSERT_LE(files.size(), 3U);
            if (round % 10 == 0)
                ExpectRestored(backup->file);
            const long arrivals = CountIn(backup->file, Arrivals);
            savedMeanwhile += round == 0 ? 0 : arrivals - atLastBackup;
            atLastBackup = arrivals;
            if (HasFatalFailure())
                return;
        }
        east.Kill();
        west.Kill();
    }
    std::cout << savedMeanwhile << " arrivals were saved during " << rounds << " backups\n";
    EXPECT_GT(savedMeanwhile, 0);
}

} // namespace
} // namespace Quillane::Office
