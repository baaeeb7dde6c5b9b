// The tables after a removal, also if other stations work on the same arrival.

#include "weighment/OpeningFixture.h"

namespace Quillane {
namespace {

using namespace Testing;
using Rows = std::vector<Lines>;

const std::string RemoveText = "Are you sure to remove this arrival?";

class Removing : public OpeningTest {
protected:
    /// Opens and removes; `meanwhile` runs while the question is shown.
    void Remove(std::int16_t id, const std::function<void()>& meanwhile = {},
                const std::vector<Box>& reported = {}) {
        Open(id);
        BoxAnswers boxes;
        boxes.Expect(Question(RemoveText), BoxAnswer::Yes, meanwhile);
        for (const Box& box : reported)
            boxes.Expect(box);
        screen->BtnRemove_Click();
    }
    void ExpectStillOpen(int id) {
        EXPECT_EQ(screen->TxtArrivalId.Text(), std::to_string(id));
        EXPECT_TRUE(screen->IsOpened);
        EXPECT_EQ(On(), "Open Print Remove Clear ");
    }
    std::string HeadersOf(int id) {
        return StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = " + std::to_string(id));
    }
    std::string RowsOf(int id) {
        return StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = " +
                          std::to_string(id));
    }

    const Box KeyRefuses = Critical(EngineWords("FOREIGN KEY constraint failed"), "Database");
    const Box RowIsGone =
        Critical("The row in arrivalsbody cannot be found for writing: some of its values have "
                 "been changed, or it has been deleted, since it was read.",
                 "Database");
};

TEST_F(Removing, RemovesOnlyTheHeaderAndItsRows) {
    Rows headers = StoredTable("Arrivals");
    Rows bodies = StoredTable("ArrivalsBody");
    const auto others = StoredTable("PurchaseBody");
    Remove(1034);
    std::erase_if(headers, [](const Lines& row) { return row[0] == "1034"; });
    std::erase_if(bodies, [](const Lines& row) { return row[1] == "1034"; });
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_EQ(StoredTable("PurchaseBody"), others);
    EXPECT_EQ(headers.size(), 11U);
}

TEST_F(Removing, ClearsTheScreenWithoutAMessage) {
    Remove(1034);
    EXPECT_EQ(On(), "Open Clear ");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->ArrivalNo, 1043);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "");
    EXPECT_EQ(screen->TxtNetWeight.Text(), "0");
    EXPECT_EQ(BagLines(), Lines{});
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

TEST_F(Removing, FreesOnlyTheHighestNumber) {
    Remove(1040);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    Remove(1042);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1042");
    Remove(1041);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1040") << "1040 has been removed already";
    FillIn();
    Save();
    EXPECT_EQ(RowsOf(1040), "2") << "its number is used again";
}

TEST_F(Removing, OfTheLastArrivalOfAllStartsWithOneAgain) {
    RunBeside("DELETE FROM PurchaseBody; DELETE FROM LaboratoryReports;"
              "DELETE FROM ArrivalsBody WHERE ArrivalId <> 1031;"
              "DELETE FROM Arrivals WHERE ArrivalID <> 1031");
    Remove(1031);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1");
}

TEST_F(Removing, DoesNotAskWhetherTheArrivalIsPosted) {
    ASSERT_EQ(StoredCell("SELECT IsPosted FROM Arrivals WHERE ArrivalID = 1036"), "1");
    Remove(1036);
    EXPECT_EQ(HeadersOf(1036), "0");
}

TEST_F(Removing, IsNotPossibleInTheFirstAndTheSecondState) {
    ScreenDriver driver(*screen);
    for (const int mode : {1, 2}) {
        Open(1040);
        screen->SetButtonState(mode);
        driver.Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete).Click(screen->BtnRemove);
        EXPECT_EQ(HeadersOf(1040), "1") << mode;
        screen->NewWeighment();
    }
}

TEST_F(Removing, RemovesRowsThatOpeningDidNotShow) {
    Store(2000, {{.bags = "30"}, {.bags = "10", .bagClass = "0"}});
    Remove(2000);
    EXPECT_EQ(HeadersOf(2000), "0");
    EXPECT_EQ(RowsOf(2000), "0");
}

TEST_F(Removing, OfAnArrivalWhoseRowsWereMovedToAnotherOne) {
    Open(1040);
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040");
    BoxAnswers boxes;
    boxes.Expect(Question(RemoveText), BoxAnswer::Yes);
    screen->BtnRemove_Click();
    EXPECT_EQ(HeadersOf(1040), "0");
}

// The tables may have no key: rows are then matched on all their columns.
TEST_F(Removing, OfEqualRowsInATableWithoutAKeyRemovesEachOfThem) {
    database.Loosen("ArrivalsBody");
    Store(2000, {{}, {}, {}});
    Remove(2000);
    EXPECT_EQ(RowsOf(2000), "0");
    EXPECT_EQ(HeadersOf(2000), "0");
    EXPECT_EQ(RowsOf(1040), "2");
}

// ---- other stations ----

const std::string ARowMore =
    "INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags, "
    "TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction, NetWeight) VALUES "
    "(1040, 1, 1, 1, 99, 0, 0, 1, 0, 0, 99);";

TEST_F(Removing, OfAnArrivalThatGetsARowInBetweenIsRefusedByTheKeyAndRolledBack) {
    Remove(1040, [this] { RunBeside(ARowMore); }, {KeyRefuses});
    EXPECT_EQ(Body("NoOfBags", 1040), (Rows{{"45"}, {"71"}, {"99"}}));
    EXPECT_EQ(HeadersOf(1040), "1");
    ExpectStillOpen(1040);
}

TEST_F(Removing, OfAnArrivalThatGetsARowInBetweenLeavesThatRowIfThereIsNoForeignKey) {
    database.Loosen("ArrivalsBody");
    Remove(1040, [this] { RunBeside(ARowMore); });
    EXPECT_EQ(Body("NoOfBags", 1040), Rows{{"99"}});
    EXPECT_EQ(HeadersOf(1040), "0");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

TEST_F(Removing, DoesNotSeeAPurchaseThatIsStoredAfterTheTest) {
    const std::string purchase = "INSERT INTO PurchaseBody (PurchaseId, ArrivalId) VALUES (78, "
                                 "1040)";
    for (const bool tied : {true, false}) {
        if (!tied)
            database.Loosen("PurchaseBody");
        Open(1040);
        Trace trace(*screen, line);
        trace.Answer(RemoveText, BoxAnswer::Yes);
        trace.When("BeginTrans", [&] { RunBeside(purchase); });
        screen->BtnRemove_Click();
        const Lines done = trace.Take();
        const bool refused =
            std::count(done.begin(), done.end(), DatabaseBox("FOREIGN KEY constraint failed")) == 1;
        EXPECT_EQ(refused, tied);
        EXPECT_EQ(HeadersOf(1040), tied ? "1" : "0");
        RunBeside("DELETE FROM PurchaseBody WHERE PurchaseId = 78");
    }
}

TEST_F(Removing, SeesAPurchaseThatIsStoredWhileTheQuestionIsShown) {
    Remove(
        1040,
        [this] { RunBeside("INSERT INTO PurchaseBody (PurchaseId, ArrivalId) VALUES (78, 1040)"); },
        {Alert("Cannot remove this invoice because it is used in (PurchaseBody) table",
               BoxIcon::Exclamation)});
    EXPECT_EQ(HeadersOf(1040), "1");
    ExpectStillOpen(1040);
}

TEST_F(Removing, OfAnArrivalThatAnotherStationHasRemovedIsRolledBack) {
    Remove(1040,
           [this] {
               RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040;"
                         "DELETE FROM Arrivals WHERE ArrivalID = 1040");
           },
           {RowIsGone});
    ExpectStillOpen(1040);
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals"), "11");
    Open(1031);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1031") << "the station continues";
}

TEST_F(Removing, OfAnArrivalThatAnotherStationHasSavedAgainIsRolledBack) {
    Remove(1040,
           [this] { RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1040;" + ARowMore); },
           {RowIsGone});
    EXPECT_EQ(Body("NoOfBags", 1040), Rows{{"99"}});
    EXPECT_EQ(HeadersOf(1040), "1");
}

} // namespace
} // namespace Quillane
