// Two stations, each in its own process, on one database file.

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "data/EmbeddedFunctions.h"
#include "signin/UserLogin.h"
#include "weighment/StationProcess.h"

#include <sqlite3.h>

#include <memory>

namespace Quillane::Testing {
namespace {

class TwoStations : public WeighmentTest {
protected:
    std::unique_ptr<Station> Start(const std::string& name, const std::string& party, int bagLines,
                                   int saves) {
        return std::make_unique<Station>(database, name, party, bagLines, saves);
    }

    /// Checks that the arrival is one complete weighment of this station, header and lines.
    void ExpectWhole(int id, const Station& station, const std::string& driver) {
        const std::string where = " WHERE ArrivalId = " + std::to_string(id);
        EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals" + where), "'" + station.Party() + "'");
        const int serial = std::stoi(driver.substr(driver.rfind('-') + 1));
        EXPECT_EQ(Stored("SELECT count(*), min(DriverName), max(DriverName), max(VehicleNo), "
                         "CAST(round(sum(NetWeight), 0) AS INTEGER) FROM ArrivalsBody" +
                         where),
                  (std::vector<Lines>{{std::to_string(station.BagLines()), "'" + driver + "'",
                                       "'" + driver + "'", "'" + station.Name() + "'",
                                       std::to_string(1000 + serial - serial % 7)}}))
            << id;
    }

    std::string StoredDriver(int id) {
        const std::string cell = StoredCell("SELECT DISTINCT DriverName FROM ArrivalsBody WHERE "
                                            "ArrivalId = " +
                                            std::to_string(id));
        return cell.size() > 2 ? cell.substr(1, cell.size() - 2) : cell;
    }
};

// Both show the same number at first. The second one gets a message, or overwrites if the other's
// row was stored after its last check. In both cases each stored weighment is a complete one of one
// station.
TEST_F(TwoStations, SavingAtTheSameTimeAreRefusedOneByOneWithoutPartialSave) {
    const auto headers = StoredTable("Arrivals");
    constexpr int Saves = 50;
    const auto east = Start("east", "6010001", 3, Saves);
    const auto west = Start("west", "6010002", 2, Saves);
    east->Go();
    west->Go();
    east->Listen();
    west->Listen();
    east->ExpectGoodEnd();
    west->ExpectGoodEnd();

    std::set<int> ids;
    for (const Station* station : {east.get(), west.get()}) {
        EXPECT_EQ(station->Saved().size(), static_cast<std::size_t>(Saves));
        for (const std::string& box : station->Boxes())
            EXPECT_TRUE(box == ClashBox || (OnSqlServer() && box == KeyBox)) << box;
        for (const auto& [id, serial] : station->Saved())
            ids.insert(id);
    }
    const std::size_t overwritten = 2 * Saves - ids.size();
    EXPECT_GE(overwritten + east->Boxes().size() + west->Boxes().size(), 1U);
    // The numbers are assigned in sequence, without a gap.
    EXPECT_EQ(*ids.begin(), 1043);
    EXPECT_EQ(*ids.rbegin() - *ids.begin() + 1, static_cast<int>(ids.size()));
    EXPECT_EQ(StoredTable("Arrivals").size(), headers.size() + ids.size());

    for (const int id : ids) {
        const std::string driver = StoredDriver(id);
        const Station& owner = driver.starts_with("east") ? *east : *west;
        const auto saved = owner.Saved().find(id);
        ASSERT_NE(saved, owner.Saved().end()) << id << " " << driver;
        EXPECT_EQ(driver, owner.Name() + "-" + std::to_string(saved->second));
        ExpectWhole(id, owner, driver);
    }
    ExpectSound(database);
}

TEST_F(TwoStations, OneAfterTheOtherTakeTheNumbersInTurn) {
    const auto first = Start("east", "6010001", 1, 1);
    const auto second = Start("west", "6010002", 2, 1);
    first->Go();
    first->Listen();
    first->ExpectGoodEnd();
    second->Go();
    second->Listen();
    second->ExpectGoodEnd();
    EXPECT_EQ(first->Saved(), (std::map<int, int>{{1043, 1}}));
    EXPECT_TRUE(first->Boxes().empty());
    EXPECT_EQ(second->Saved(), (std::map<int, int>{{1044, 1}}));
    EXPECT_EQ(second->Boxes(), Lines{ClashBox});
    ExpectWhole(1043, *first, "east-1");
    ExpectWhole(1044, *second, "west-1");
}

TEST_F(TwoStations, OneThatIsKilledLeavesOnlyCompleteWeighments) {
    const auto station = Start("east", "6010001", 3, 100'000);
    station->Go();
    station->Listen(20);
    station->Kill();
    station->Listen();
    ASSERT_GE(station->Saved().size(), 20U);
    for (const auto& [id, serial] : station->Saved())
        ExpectWhole(id, *station, "east-" + std::to_string(serial));
    // It may have made one save that it could not report.
    for (const Lines& row : Stored("SELECT ArrivalID FROM Arrivals WHERE ArrivalID > 1042"))
        ExpectWhole(std::stoi(row.at(0)), *station, StoredDriver(std::stoi(row.at(0))));
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId NOT IN (SELECT "
                         "ArrivalID FROM Arrivals)"),
              "0");
    ExpectSound(database);
}

// ---- waiting for the other ----

/// Another session that holds the file's write lock.
class WriteLock {
public:
    explicit WriteLock(const std::string& file) {
        EXPECT_EQ(sqlite3_open(file.c_str(), &session_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(session_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~WriteLock() { sqlite3_close(session_); }
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;

private:
    sqlite3* session_ = nullptr;
};

TEST_F(TwoStations, AFileLockedForLongerThanTheWaitIsReportedAndTheNextAttemptWorks) {
    SKIP_ON_SQL_SERVER("no save of a station locks the whole database");
    Con = std::make_unique<Connection>();
    Con->SetEmbeddedSupport({.folder = database.folder.path,
                             .registerFunctions = RegisterEmbeddedFunctions,
                             .busyWait = std::chrono::milliseconds(20)});
    Con->Open("Driver=SQL Server;" + database.ConfigText());
    CompanyProfile->SetConnection(*Con);
    UserLogin->SetConnection(*Con);
    ShowScreen();
    FillIn();
    Trace trace(*screen, line);
    {
        const WriteLock other(database.folder.File("Account1.db"));
        screen->BtnSave_Click();
        const Lines seen = trace.Take();
        ASSERT_EQ(seen.size(), 8U);
        EXPECT_EQ(seen[4], "BeginTrans");
        EXPECT_EQ(seen[6], "RollbackTrans");
        EXPECT_EQ(seen[7], "Box \"Database\" [critical, OK] database is locked");
    }
    EXPECT_TRUE(screen->BtnSave.Enabled());
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

// The transaction is open while the box of a refusal is shown: another station waits for the
// answer.
TEST_F(TwoStations, TheOtherWaitsWhileARefusalIsShown) {
    SKIP_ON_SQL_SERVER("it locks rows, so another arrival can be saved");
    ShowScreen();
    FillInOpened(1035);
    const auto other = Start("west", "6010002", 2, 1);
    Trace trace(*screen, line);
    trace.When("Box \"Alert\" [exclamation, OK] Cannot updated this invoice because it is used in "
               "(PurchaseBody) table",
               [&] {
                   other->Go();
                   EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "1042");
               });
    screen->BtnSave_Click();
    other->Listen();
    other->ExpectGoodEnd();
    EXPECT_EQ(other->Saved(), (std::map<int, int>{{1043, 1}}));
    ExpectWhole(1043, *other, "west-1");
}

} // namespace
} // namespace Quillane::Testing
