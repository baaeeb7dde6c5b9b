// Two stations, each in its own process, that save, open and remove arrivals at random on one
// database file. One of them may be killed while it does so.

#include "weighment/StationEncounter.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <random>

namespace Quillane::Testing {
namespace {

constexpr unsigned Seed = 20'261'120;
constexpr int ActionsOfEach = 1'000;
constexpr int Rounds = 8;
constexpr int ActionsOfARound = 60;

/// A box that may be shown if the other station has removed the arrival, or saved it again, between
/// the reading of its rows and their removal.
const Lines RemovalBoxes{"box The row in arrivalsbody cannot be found for writing: some of its "
                         "values have been changed, or it has been deleted, since it was read.",
                         // A server also lets the other station change the header between reading
                         // and writing it.
                         "box The row in Arrivals cannot be found for writing: some of its values "
                         "have been changed, or it has been deleted, since it was read.",
                         "box " + EngineWords("FOREIGN KEY constraint failed")};

using Load = Station::Load;

class RandomStations : public WeighmentTest {
protected:
    void Start(unsigned seed, int actionsOfEach) {
        east = std::make_unique<Station>(database, "east", "6010001", 3, actionsOfEach, seed);
        west = std::make_unique<Station>(database, "west", "6010002", 2, actionsOfEach, seed + 1);
    }

    /// The last save of an arrival according to its rows: the station and the serial.
    struct Save {
        const Station* station = nullptr;
        int serial = 0;
    };
    Save SaveOf(const std::string& driver) {
        const auto hyphen = driver.find('-');
        if (hyphen == std::string::npos)
            return {};
        const Station* station = driver.substr(0, hyphen) == "east" ? east.get() : west.get();
        return {station, std::stoi(driver.substr(hyphen + 1))};
    }

    /// Checks that header and rows are of one save, with the figures of that save. Returns its
    /// driver.
    std::string ExpectWhole(int id) {
        SCOPED_TRACE(id);
        const std::string where = " WHERE ArrivalId = " + std::to_string(id);
        const auto rows =
            Stored("SELECT count(*), min(DriverName), max(DriverName), min(BiltyNo), max(BiltyNo), "
                   "max(VehicleNo), sum(NoOfBags), sum(NoOfBags * BagWeight), sum(OtherDeduction), "
                   "sum(NetWeight) FROM ArrivalsBody" +
                   where);
        const Lines& row = rows.at(0);
        EXPECT_NE(row[0], "0") << "a header without rows";
        if (row[0] == "0")
            return {};
        EXPECT_EQ(row[1], row[2]) << "rows of two saves";
        EXPECT_EQ(row[3], row[4]);
        EXPECT_EQ("'" + row[0] + "'", row[3]) << "all rows of the save";
        const std::string driver = row[1].substr(1, row[1].size() - 2);
        const Save last = SaveOf(driver);
        EXPECT_TRUE(last.station &&
                    (last.station->Saves().contains({id, last.serial}) || last.station == cutOff))
            << driver;
        if (!last.station)
            return {};
        EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals" + where),
                  "'" + last.station->Party() + "'");
        EXPECT_EQ(row[5], "'" + last.station->Name() + "'");
        const int lines = std::stoi(row[0]);
        const int gross = 1000 + last.serial, deduction = last.serial % 7;
        EXPECT_EQ(std::stoi(row[6]), 10 * lines + lines * (lines - 1) / 2);
        EXPECT_NEAR(std::stod(row[7]), gross, 1e-6);
        EXPECT_NEAR(std::stod(row[8]), deduction, 1e-6);
        EXPECT_NEAR(std::stod(row[9]), gross - deduction, 1e-6);
        return driver;
    }

    /// Checks that every arrival of the two stations is complete, and that no row of a removed one
    /// is left.
    std::set<Load> ExpectWholeOrGone() {
        std::set<Load> stored;
        for (const Lines& row : Stored("SELECT ArrivalID FROM Arrivals WHERE ArrivalID > 1042")) {
            const int id = std::stoi(row.at(0));
            stored.emplace(id, ExpectWhole(id));
        }
        EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId NOT IN (SELECT "
                             "ArrivalID FROM Arrivals)"),
                  "0");
        ExpectSound(database);
        return stored;
    }

    /// The removed arrivals. No load may be removed twice: the second time it would have been
    /// another load.
    std::set<Load> ExpectEachRemovedOnce() {
        std::set<Load> removed;
        for (const Station* station : {east.get(), west.get()})
            for (const Load& load : station->Removed())
                EXPECT_TRUE(removed.insert(load).second)
                    << load.first << " " << load.second << " is removed twice";
        if (cutOff)
            removed.insert(cutOff->LastAsked());
        return removed;
    }

    /// True if the arrival of that save may have been overwritten since by a reported save.
    bool MayBeSavedOver(int id, const Station& station, int serial) const {
        for (const Station* each : {east.get(), west.get()})
            for (const auto& [savedId, savedSerial] : each->Saves())
                if (savedId == id && (each != &station || savedSerial > serial))
                    return true;
        return false;
    }

    /// The ids of saves that the station could not report before it was killed: one at most.
    std::set<int> ExpectOneUnreportedSave(const std::set<Load>& stored,
                                          const std::set<Load>& removed) {
        std::set<Load> unreported;
        for (const std::set<Load>* loads : {&stored, &removed})
            for (const Load& load : *loads) {
                const Save save = SaveOf(load.second);
                if (save.station && save.station == cutOff &&
                    !cutOff->Saves().contains({load.first, save.serial}))
                    unreported.insert(load);
            }
        EXPECT_LE(unreported.size(), 1U);
        std::set<int> ids;
        for (const Load& load : unreported)
            ids.insert(load.first);
        return ids;
    }

    void ExpectNothingLost() {
        const std::set<Load> stored = ExpectWholeOrGone();
        const std::set<Load> removed = ExpectEachRemovedOnce();
        const std::set<int> unreported = ExpectOneUnreportedSave(stored, removed);
        for (const Station* station : {east.get(), west.get()})
            for (const auto& [id, serial] : station->Saves()) {
                const Load load{id, station->Name() + "-" + std::to_string(serial)};
                EXPECT_TRUE(stored.contains(load) || removed.contains(load) ||
                            MayBeSavedOver(id, *station, serial) || unreported.contains(id))
                    << id << " " << load.second << " is lost";
            }
    }

    void ExpectKnownBoxes() {
        for (const Station* station : {east.get(), west.get()})
            for (const std::string& box : station->Boxes())
                EXPECT_TRUE(box == ClashBox ||
                            std::count(RemovalBoxes.begin(), RemovalBoxes.end(), box))
                    << box;
    }

    std::unique_ptr<Station> east, west;
    const Station* cutOff = nullptr; ///< may have made one save that it could not report
};

/// Another seed may be given to search for more cases.
unsigned GivenSeed() {
    const char* given = std::getenv("QUILLANE_SEED");
    return given ? static_cast<unsigned>(std::stoul(given)) : Seed;
}

TEST_F(RandomStations, LeaveEveryArrivalCompleteOrRemoved) {
    const unsigned seed = GivenSeed();
    SCOPED_TRACE("seed " + std::to_string(seed));
    const auto before = Stored("SELECT * FROM ArrivalsBody WHERE ArrivalId <= 1042");
    Start(seed, ActionsOfEach);
    StationEncounter({east.get(), west.get()}, seed).Play();
    for (Station* station : {east.get(), west.get()}) {
        station->ExpectGoodEnd();
        EXPECT_GT(station->Saves().size(), 400U);
        EXPECT_GT(station->Removed().size(), 50U);
    }
    EXPECT_GT(east->Boxes().size() + west->Boxes().size(), 0U)
        << "the stations have disturbed each other";
    ExpectKnownBoxes();
    ExpectNothingLost();
    EXPECT_EQ(Stored("SELECT * FROM ArrivalsBody WHERE ArrivalId <= 1042"), before);
}

TEST_F(RandomStations, OfWhichOneIsKilledLeaveEveryArrivalCompleteOrRemoved) {
    std::mt19937 chance(GivenSeed());
    for (int round = 0; round < Rounds; ++round) {
        const auto seed = static_cast<unsigned>(chance());
        SCOPED_TRACE("round " + std::to_string(round) + ", seed " + std::to_string(seed));
        Start(seed, ActionsOfARound);
        StationEncounter encounter({east.get(), west.get()}, seed);
        cutOff = round % 2 == 0 ? east.get() : west.get();
        const Station& other = round % 2 == 0 ? *west : *east;
        encounter.KillAfterLine(*cutOff, 1 + static_cast<int>(chance() % ActionsOfARound));
        encounter.Play();
        EXPECT_GT(other.Saves().size(), static_cast<std::size_t>(ActionsOfARound / 3));
        ExpectKnownBoxes();
        ExpectNothingLost();
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId > 1042;"
                  "DELETE FROM Arrivals WHERE ArrivalID > 1042");
    }
}

} // namespace
} // namespace Quillane::Testing
