// Another station removes a load that this station is about to remove or save again, and a new load
// takes its place in the tables: nothing of the new load is lost.

#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;
using Rows = std::vector<Lines>;

/// The load that this station has open, and the one that the other station saves in between.
constexpr std::int16_t Opened = 2000;

const Box RowIsGone =
    Critical("The row in arrivalsbody cannot be found for writing: some of its values have been "
             "changed, or it has been deleted, since it was read.",
             "Database");

/// A load with this number of lines, identified by the vehicle and the driver.
std::vector<StoredLine> LoadOf(const std::string& driver, int lines) {
    std::vector<StoredLine> load(static_cast<std::size_t>(lines));
    for (StoredLine& each : load)
        each.driver = "'" + driver + "'";
    load.front().vehicle = "'" + driver + "'";
    load.front().tare = "4320";
    return load;
}

class ReplacedLoad : public OpeningTest {
protected:
    void OtherRemovesIt() {
        const std::string id = std::to_string(Opened);
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = " + id +
                  "; DELETE FROM Arrivals WHERE ArrivalID = " + id);
    }
    void OtherReplacesItBy(int id, int lines) {
        OtherRemovesIt();
        Store(id, LoadOf("west", lines));
    }
    /// Answers the removal's question with Yes and runs `meanwhile` before the answer.
    void Remove(const std::function<void()>& meanwhile, const std::vector<Box>& reported) {
        BoxAnswers boxes;
        boxes.Expect(Question("Are you sure to remove this arrival?"), BoxAnswer::Yes, meanwhile);
        for (const Box& box : reported)
            boxes.Expect(box);
        screen->BtnRemove_Click();
    }
    Rows LinesOf(int id) {
        return Stored("SELECT VehicleNo, DriverName, TareWeight FROM ArrivalsBody WHERE ArrivalId "
                      "= " +
                      std::to_string(id) + " ORDER BY TareWeight DESC");
    }
    static Rows LinesOfWest(int count) {
        Rows rows(static_cast<std::size_t>(count), Lines{"''", "'west'", "0"});
        rows.front() = {"'west'", "'west'", "4320"};
        return rows;
    }
    std::string Headers() {
        return StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID >= 2000");
    }
};

TEST_F(ReplacedLoad, IsNotRemovedIfTheNewLoadHasAnotherNumber) {
    for (const int lines : {1, 2, 3, 4}) {
        SCOPED_TRACE(lines);
        Store(Opened, LoadOf("east", 3));
        Open(Opened);
        Remove([&] { OtherReplacesItBy(2001, lines); }, {RowIsGone});
        EXPECT_EQ(LinesOf(2001), LinesOfWest(lines));
        EXPECT_EQ(Headers(), "1");
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 2001;"
                  "DELETE FROM Arrivals WHERE ArrivalID = 2001");
        screen->NewWeighment();
    }
}

TEST_F(ReplacedLoad, IsNotRemovedIfTheNewLoadHasTheSameNumber) {
    for (const int lines : {1, 2, 3, 4}) {
        SCOPED_TRACE(lines);
        Store(Opened, LoadOf("east", 3));
        Open(Opened);
        Remove([&] { OtherReplacesItBy(Opened, lines); }, {RowIsGone});
        EXPECT_EQ(LinesOf(Opened), LinesOfWest(lines));
        EXPECT_EQ(Headers(), "1");
        OtherRemovesIt();
        screen->NewWeighment();
    }
}

TEST_F(ReplacedLoad, IsNotRemovedFromATableWithoutAKeyEither) {
    database.Loosen("ArrivalsBody");
    for (const int id : {int{Opened}, 2001}) {
        SCOPED_TRACE(id);
        Store(Opened, LoadOf("east", 3));
        Open(Opened);
        Remove([&] { OtherReplacesItBy(id, 3); }, {RowIsGone});
        EXPECT_EQ(LinesOf(id), LinesOfWest(3));
        EXPECT_EQ(Headers(), "1");
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId >= 2000;"
                  "DELETE FROM Arrivals WHERE ArrivalID >= 2000");
        screen->NewWeighment();
    }
}

// The save reads the lines that it replaces within its transaction.
TEST_F(ReplacedLoad, SavedAgainIsRestoredAndTheNewLoadIsNotChanged) {
    for (const bool hasKey : {true, false}) {
        SCOPED_TRACE(hasKey);
        if (!hasKey)
            database.Loosen("ArrivalsBody");
        Store(Opened, LoadOf("east", 3));
        FillInOpened(Opened);
        Trace trace(*screen, line);
        trace.When("BeginTrans", [&] { OtherReplacesItBy(2001, 3); });
        screen->BtnSave_Click();
        EXPECT_EQ(LinesOf(2001), LinesOfWest(3));
        EXPECT_EQ(LinesOf(Opened).size(), 2U);
        EXPECT_EQ(Headers(), "2");
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId >= 2000;"
                  "DELETE FROM Arrivals WHERE ArrivalID >= 2000");
    }
}

} // namespace
} // namespace Quillane
