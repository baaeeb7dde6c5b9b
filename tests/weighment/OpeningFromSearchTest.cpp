// Opening from the search screen, and the state after a cancelled search: no current arrival, while
// the box still shows one.

#include "data/Con.h"
#include "slip/SlipStatement.h"
#include "weighment/OpeningFixture.h"

#include <QWindow>

namespace Quillane {
namespace {

using namespace Testing;

class OpeningFromSearch : public OpeningTest {
protected:
    /// An arrival on the screen, then a search without a selection.
    void OpenAndCancel(std::int16_t id) {
        Open(id);
        CancelSearch();
        ASSERT_EQ(screen->ArrivalNo, 0);
        ASSERT_EQ(screen->TxtArrivalId.Text(), std::to_string(id));
        ASSERT_TRUE(screen->IsOpened);
        ASSERT_EQ(On(), "Open Print Remove Clear ");
    }
};

// ---- selecting ----

TEST_F(OpeningFromSearch, OpensTheArrivalThatIsSelectedByKeys) {
    OpenBySearch(1034);
    EXPECT_TRUE(screen->IsOpened);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1034");
    EXPECT_EQ(screen->BagRows.RowCount(), 3);
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

TEST_F(OpeningFromSearch, OpensTheNewestArrivalUnlessAnotherIsSelected) {
    VisitModal search([](Screen& modal) {
        ScreenDriver(modal).Press(Qt::Key_Return).Press(Qt::Key_Return).Press(Qt::Key_Return);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1042");
}

TEST_F(OpeningFromSearch, OpensTheRowThatTheArrowsHaveReached) {
    VisitModal search([](Screen& modal) {
        ScreenDriver(modal)
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Down)
            .Press(Qt::Key_Down)
            .Press(Qt::Key_Return);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1040");
}

TEST_F(OpeningFromSearch, OpensByTheButtonInTheFirstAndTheThirdState) {
    for (const bool stored : {false, true}) {
        if (stored)
            Open(1031);
        VisitModal search([](Screen& modal) {
            dynamic_cast<SchArrivals&>(modal).SelectedArrivalId = 1040;
            modal.Unload();
        });
        ScreenDriver(*screen).Click(screen->BtnOpen);
        EXPECT_EQ(screen->TxtArrivalId.Text(), "1040");
        screen->NewWeighment();
    }
}

TEST_F(OpeningFromSearch, IsNotPossibleWhileSomethingIsUnsaved) {
    FillIn();
    Trace trace(*screen, line);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O).Click(screen->BtnOpen);
    EXPECT_EQ(StatementsOf(trace.Take()), Lines{});
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
}

// The limit of 16 bits is only on the typed path.
TEST_F(OpeningFromSearch, OpensIdsBeyondSixteenBits) {
    for (const int id : {32768, 40000, 2147483647}) {
        Store(id, {{.bags = "10"}});
        OpenBySearch(id);
        EXPECT_TRUE(screen->IsOpened);
        EXPECT_EQ(screen->TxtArrivalId.Text(), std::to_string(id));
        EXPECT_EQ(screen->ArrivalNo, id);
    }
}

TEST_F(OpeningFromSearch, OpensAndSavesAnIdBeyondSixteenBits) {
    Store(40000, {{.bags = "10"}});
    OpenBySearch(40000);
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    screen->TxtVehicleNo.SetText("NEW-1");
    Save();
    EXPECT_EQ(Body("VehicleNo, NoOfBags", 40000), (std::vector<Lines>{{"'NEW-1'", "10"}}));
}

// The search lists the arrival, because it needs no city. The load needs one, and ends without a
// message.
TEST_F(OpeningFromSearch, OfAnArrivalThatTheJoinsDropKeepsTheScreenAndTheOtherNumber) {
    RunBeside("UPDATE Arrivals SET SellerId = '6010028' WHERE ArrivalID = 1032");
    Open(1031);
    const Lines before = Screenful();
    OpenBySearch(1032);
    EXPECT_EQ(Screenful(), before);
    EXPECT_EQ(screen->ArrivalNo, 1032) << "the member does not follow the box any more";
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1031");
}

TEST_F(OpeningFromSearch, OfAnArrivalRemovedInBetweenShowsNoMessage) {
    VisitModal search([this](Screen& modal) {
        RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1042;"
                  "DELETE FROM Arrivals WHERE ArrivalID = 1042");
        ScreenDriver(modal).Press(Qt::Key_Return).Press(Qt::Key_Return).Press(Qt::Key_Return);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->ArrivalNo, 1042);
}

TEST_F(OpeningFromSearch, StartsOverEachTime) {
    OpenBySearch(1034);
    VisitModal search([](Screen& modal) {
        auto& fresh = dynamic_cast<SchArrivals&>(modal);
        EXPECT_EQ(fresh.TxtFilterId.Text(), "");
        EXPECT_EQ(fresh.SelectedArrivalId, 0);
        EXPECT_EQ(fresh.GrdSch.Rows(), 12);
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
}

TEST_F(OpeningFromSearch, IsModalWhileTheReadingIsUpdated) {
    VisitModal search([this](Screen& modal) {
        EXPECT_EQ(modal.windowHandle()->transientParent(), screen->windowHandle());
        line.Write("+012345 kg\r\n+012345 kg\r\n+012345 kg\r\n");
        EXPECT_TRUE(WaitFor([this] { return screen->TxtWeight.Text() == "12345"; }));
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
    EXPECT_TRUE(screen->isActiveWindow());
}

// ---- without a selection ----

TEST_F(OpeningFromSearch, CancelledByAnyMeansLeavesTheScreenWithoutACurrentArrival) {
    const std::function<void(Screen&)> ways[] = {
        [](Screen& modal) { ScreenDriver(modal).Press(Qt::Key_Escape); },
        [](Screen& modal) { ScreenDriver(modal).Press(Qt::CTRL | Qt::Key_Q); },
        [](Screen& modal) {
            ScreenDriver(modal).Click(dynamic_cast<SchArrivals&>(modal).BtnClose);
        },
        [](Screen& modal) { modal.close(); }};
    Open(1031);
    const Lines before = Screenful();
    for (const auto& way : ways) {
        screen->TxtArrivalId.SetText("1031");
        VisitModal search(way);
        ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
        EXPECT_EQ(Screenful(), before);
        EXPECT_EQ(screen->ArrivalNo, 0);
    }
}

// The new body rows are added to the old ones, because the rows of arrival 0 are searched for.
TEST_F(OpeningFromSearch, CancelledOverAnArrivalMakesASaveAddItsRowsToTheOldOnes) {
    OpenAndCancel(1031);
    // The statement of opening has no order.
    const std::string first = screen->BagRows.Get(0, 2);
    const std::string second = screen->BagRows.Get(1, 2);
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    screen->TxtDriverName.SetText("Second");
    Trace trace(*screen, line);
    screen->BtnSave_Click();
    const Lines done = StatementsOf(trace.Take());
    const Lines expected{PostedRule("1031"),
                         PostedRule("1031"),
                         "BeginTrans",
                         "Select * from Arrivals Where ArrivalId=1031",
                         HeaderUpdate,
                         "Select * From arrivalsbody where arrivalid=0",
                         "EXEC sp_fkeys @pktable_name = N'Arrivals'",
                         "Select TOP 1 * From LaboratoryReports Where SampleArrivalNo=0",
                         "Select TOP 1 * From PurchaseBody Where ArrivalId=0",
                         "Update Arrivals Set IsPosted=0 where arrivalid=0",
                         "Select * From ArrivalsBody where arrivalid=1031",
                         BodyInsert,
                         BodyInsert,
                         "CommitTrans",
                         PortRows,
                         NextId};
    EXPECT_EQ(done, expected);
    EXPECT_EQ(Body("NoOfBags, DriverName", 1031), (std::vector<Lines>{{"60", "'Ghulam Abbas'"},
                                                                      {"40", "'Ghulam Abbas'"},
                                                                      {first, "'Second'"},
                                                                      {second, "'Second'"}}));
    EXPECT_EQ(screen->ArrivalNo, 1043) << "the new weighment corrects it";
}

// The use of the arrival by a purchase is not found, because the test asks for arrival 0.
TEST_F(OpeningFromSearch, CancelledOverAnArrivalMakesASaveLookForTheWrongDependents) {
    OpenAndCancel(1035);
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    Save();
    EXPECT_EQ(Body("NoOfBags", 1035).size(), 2U);
}

TEST_F(OpeningFromSearch, CancelledOverAnArrivalMakesAPrintShowNoRows) {
    OpenAndCancel(1031);
    VisitModal preview([](Screen& modal) {
        auto& viewer = dynamic_cast<RptReportViewer&>(modal);
        EXPECT_EQ(viewer.Report->Database.Data()->RecordCount(), 0);
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    ScreenDriver(*screen).Click(screen->BtnPrint);
    EXPECT_EQ(screen->LoadStatement, SlipStatement(0));
}

TEST_F(OpeningFromSearch, CancelledOverAnArrivalMakesARemovalRemoveNothing) {
    OpenAndCancel(1031);
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    Trace trace(*screen, line);
    trace.Answer("Are you sure to remove this arrival?", BoxAnswer::Yes);
    screen->BtnRemove_Click();
    EXPECT_EQ(StatementsOf(trace.Take()),
              (Lines{"Select * From arrivalsbody where arrivalid=0",
                     "select 1 from arrivals where arrivalid in (select ArrivalId from "
                     "purchasebody) and arrivalid = 0",
                     "BeginTrans", "Update Arrivals Set IsPosted=0 where arrivalid=0",
                     "Delete From arrivals where arrivalid=0", "CommitTrans", PortRows, NextId}));
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043") << "the screen is cleared";
}

TEST_F(OpeningFromSearch, CancelledOverAnArrivalIsCorrectedByTheNextLoad) {
    OpenAndCancel(1031);
    OpenBySearch(1031);
    EXPECT_EQ(screen->ArrivalNo, 1031);
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    Save();
    EXPECT_EQ(Body("NoOfBags", 1031).size(), 2U);
}

TEST_F(OpeningFromSearch, CancelledOverAnArrivalIsCorrectedByAClear) {
    OpenAndCancel(1031);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(screen->ArrivalNo, 1043);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

// A new weighment has no old rows, so its save is complete nevertheless; its slip is not.
TEST_F(OpeningFromSearch, CancelledOverANewWeighmentSavesItCompletelyAndPrintsNoRows) {
    CancelSearch();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    FillIn();
    ASSERT_EQ(screen->ArrivalNo, 0);
    Trace trace(*screen, line);
    trace.Answer("Do you want to print?", BoxAnswer::Yes);
    VisitModal preview([](Screen& modal) {
        auto& viewer = dynamic_cast<RptReportViewer&>(modal);
        EXPECT_EQ(viewer.Report->Database.Data()->RecordCount(), 0);
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    screen->BtnSave_Click();
    EXPECT_EQ(Body("NoOfBags", 1043), (std::vector<Lines>{{"60"}, {"40"}}));
    EXPECT_EQ(screen->ArrivalNo, 1044);
}

} // namespace
} // namespace Quillane
