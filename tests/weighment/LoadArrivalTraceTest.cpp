// The actions of opening, in order: statements, writes, boxes and moves of the focus.

#include "slip/SlipStatement.h"
#include "weighment/OpeningFixture.h"
#include "weighment/StateWatch.h"

namespace Quillane {
namespace {

using namespace Testing;

const std::string Search =
    " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
    "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
    "dbo.FunGetCommodity(Commodities.CommodityId)  AS Commodity FROM Arrivals INNER JOIN "
    "Commodities ON Arrivals.CommodityId = Commodities.CommodityId INNER JOIN Parties ON "
    "Arrivals.SellerId = Parties.PartyId  INNER JOIN ChartOfAccounts ON Parties.PartyId = "
    "ChartOfAccounts.AccountNo  Where Arrivals.ArrivalDate Between '2025-11-20T00:00:00' And "
    "'2026-11-20T00:00:00' Order By Arrivals.ArrivalId desc";

/// The rows of 1040: 45 and 71 bags of 7330 kg, 3995 kg of tare, 14 kg off.
const Lines Filling1040 = Joined({
    {"TxtArrivalId = '1040'", "TxtBuiltyNo = '601'", "TxtDriverName = 'Tanveer'",
     "TxtVehicleNo = 'LES-1090'", "TxtGrossWeight = '2844'"},
    NetBecomes("2844", "71-4"),
    {"TxtTareWeight = '3995'", "TxtDeduction = '5'"},
    NetBecomes("2839", "70-39"),
    {"TxtGrossWeight = '7330'"},
    NetBecomes("7325", "183-5"),
    {"TxtTareWeight = '3995'", "TxtDeduction = '14'"},
    NetBecomes("7316", "182-36"),
    {"TxtInitialGrossWeight = '11325'", "TxtScaleDeductKg = '0'", "TxtGrossWeight = '7330'"},
    NetBecomes("7316", "182-36"),
    NetBecomes("7316", "182-36"),
});

/// The third state, entered from the first or the second, with a load that has a tare.
const Lines WeighedOff{"CmdGrossWeight off", "CmdTareWeight off"};
const Lines StoredButtons{"BtnPrint on", "BtnRemove on"};
const Lines IdClosed{"TxtArrivalId off", "TxtArrivalId 0xE0E0E0"};

class LoadArrivalTrace : public OpeningTest {
protected:
    Lines Doing(const std::function<void()>& act) {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        act();
        return trace.Take();
    }
};

TEST_F(LoadArrivalTrace, OfAnIdThatIsTypedAndLeft) {
    ScreenDriver driver(*screen);
    driver.Type("1040");
    EXPECT_EQ(Doing([&] { driver.Press(Qt::Key_Tab); }),
              Joined({{"Validate TxtArrivalId", LeavingCount("1040"), SlipStatement(1040)},
                      BlankingAnEmptyScreen(),
                      {"TxtArrivalId 0xFFFFFF"},
                      Filling1040,
                      WeighedOff,
                      {"BtnOpen on"},
                      StoredButtons,
                      {"BtnSave off"},
                      IdClosed,
                      {"LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}}));
}

// The box of the id is closed while it has the focus: no second look-up.
TEST_F(LoadArrivalTrace, OfAnArrivalPickedInTheSearchByKey) {
    EXPECT_EQ(Doing([&] {
                  VisitModal search([](Screen& modal) {
                      dynamic_cast<SchArrivals&>(modal).SelectedArrivalId = 1040;
                      modal.Unload();
                  });
                  ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
              }),
              Joined({{Search, SlipStatement(1040)},
                      BlankingAnEmptyScreen(),
                      {"TxtArrivalId 0xFFFFFF"},
                      Filling1040,
                      WeighedOff,
                      StoredButtons,
                      {"LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"},
                      IdClosed}));
}

TEST_F(LoadArrivalTrace, OfAnArrivalPickedInTheSearchByTheButton) {
    const Lines done = Doing([&] {
        VisitModal search([](Screen& modal) {
            dynamic_cast<SchArrivals&>(modal).SelectedArrivalId = 1040;
            modal.Unload();
        });
        ScreenDriver(*screen).Click(screen->BtnOpen);
    });
    EXPECT_EQ(done,
              Joined({{"Validate TxtArrivalId", LeavingCount("1043"), "LostFocus TxtArrivalId",
                       "GotFocus BtnOpen", Search, SlipStatement(1040)},
                      BlankingAnEmptyScreen(),
                      {"TxtArrivalId 0xFFFFFF"},
                      Filling1040,
                      WeighedOff,
                      StoredButtons,
                      IdClosed,
                      Moved("BtnOpen", "DtpArrivalDate")}));
}

TEST_F(LoadArrivalTrace, OverAFilledInScreenBlanksItFirst) {
    FillIn();
    screen->TxtVehicleNo.SetFocus();
    EXPECT_EQ(Doing([&] { Open(1040); }), Joined({{SlipStatement(1040)},
                                                  BlankingAScreenOf("8220", "205-20"),
                                                  {"TxtArrivalId 0xFFFFFF"},
                                                  Filling1040,
                                                  WeighedOff,
                                                  {"BtnOpen on"},
                                                  StoredButtons,
                                                  {"BtnSave off"},
                                                  IdClosed,
                                                  Moved("TxtVehicleNo", "DtpArrivalDate")}));
}

// The buttons of a stored screen do not change; the box of the id is enabled and disabled again.
TEST_F(LoadArrivalTrace, OverALoadedArrival) {
    Open(1031);
    EXPECT_EQ(Doing([&] { Open(1040); }), Joined({{SlipStatement(1040)},
                                                  BlankingAScreenOf("8220", "205-20"),
                                                  {"TxtArrivalId on", "TxtArrivalId 0xFFFFFF"},
                                                  Filling1040,
                                                  IdClosed}));
}

// The tare is computed when it is written, because it has the focus.
TEST_F(LoadArrivalTrace, WithTheFocusInTheTareBoxRunsItsWholeHandling) {
    screen->TxtTareWeight.SetFocus();
    const Lines done = Doing([&] { Open(1031); });
    EXPECT_EQ(done.back(), "GotFocus DtpArrivalDate");
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "8220");
    EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
    EXPECT_FALSE(screen->TxtGrossWeight.Enabled());
}

// ---- ends without a message ----

TEST_F(LoadArrivalTrace, OfAnIdWithoutARowRunsOnlyTheStatement) {
    FillIn();
    const Lines before = Screenful();
    EXPECT_EQ(Doing([&] { Open(5000); }), Lines{SlipStatement(5000)});
    EXPECT_EQ(Screenful(), before);
    EXPECT_EQ(screen->ArrivalNo, 5000);
    EXPECT_EQ(screen->LoadStatement, SlipStatement(5000));
}

TEST_F(LoadArrivalTrace, OfACancelledSearchReadsArrivalZero) {
    const Lines before = Screenful();
    EXPECT_EQ(Doing([&] { CancelSearch(); }), (Lines{Search, SlipStatement(0)}));
    EXPECT_EQ(Screenful(), before);
    EXPECT_EQ(screen->ArrivalNo, 0);
    EXPECT_EQ(screen->LoadStatement, SlipStatement(0));
    EXPECT_EQ(screen->ActiveControlName(), "TxtArrivalId");
}

TEST_F(LoadArrivalTrace, OfAnArrivalThatTheJoinsDropShowsNoMessage) {
    RunBeside("UPDATE Arrivals SET SellerId = '6010028' WHERE ArrivalID = 1032;"
              "DELETE FROM ArrivalsBody WHERE ArrivalId = 1033;"
              "UPDATE ArrivalsBody SET BagsClassId = 0 WHERE ArrivalId = 1035");
    ScreenDriver driver(*screen);
    for (const std::string id : {"1032", "1033", "1035"}) {
        screen->TxtArrivalId.SetFocus();
        screen->TxtArrivalId.SetText(id);
        const Lines before = Screenful();
        EXPECT_EQ(Doing([&] { driver.Press(Qt::Key_Tab); }),
                  (Lines{"BtnOpen off", "BtnSave on", "Validate TxtArrivalId", LeavingCount(id),
                         SlipStatement(std::stoi(id)), "LostFocus TxtArrivalId",
                         "GotFocus DtpArrivalDate"}))
            << id;
        EXPECT_EQ(screen->TxtArrivalId.Text(), id) << "the box keeps the typed id";
        EXPECT_FALSE(screen->IsOpened);
        screen->NewWeighment();
    }
}

// ---- failures ----

TEST_F(LoadArrivalTrace, ThatCannotReadIsReportedAndDoesNotChangeTheScreen) {
    FillIn();
    database.Rename("PRCenters", "Away");
    const Lines before = Screenful();
    EXPECT_EQ(Doing([&] { Open(1031); }),
              (Lines{SlipStatement(1031), DatabaseBox("no such table: PRCenters")}));
    EXPECT_EQ(Screenful(), before);
    EXPECT_EQ(screen->ArrivalNo, 1031);
}

// The quantity of the second row fails: the figures of the first row stay, and the arrival is not
// opened.
TEST_F(LoadArrivalTrace, ThatFailsAtARowKeepsTheControlsFilledBefore) {
    database.Loosen("ArrivalsBody");
    RunBeside("UPDATE ArrivalsBody SET NoOfBags = Null WHERE ArrivalId = 1040 AND NoOfBags = 71");
    ScreenDriver driver(*screen);
    driver.Type("1040");
    EXPECT_EQ(Doing([&] { driver.Press(Qt::Key_Tab); }),
              Joined({{"Validate TxtArrivalId", LeavingCount("1040"), SlipStatement(1040)},
                      BlankingAnEmptyScreen(),
                      {"TxtArrivalId 0xFFFFFF"},
                      Lines(Filling1040.begin(), Filling1040.begin() + 11),
                      {NullLine, "LostFocus TxtArrivalId", "GotFocus DtpArrivalDate"}}));
    EXPECT_EQ(BagLines(), (Lines{"Jute New | 100 Kg | 45", "Polypropylene | 40 Kg | "}));
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->ArrivalNo, 1040);
    EXPECT_TRUE(screen->TxtArrivalId.Enabled());
    EXPECT_EQ(On(), "Save Clear ") << "as before";
}

TEST_F(LoadArrivalTrace, OfASearchThatCannotListReportsOnlyThat) {
    SKIP_ON_SQL_SERVER("a function is bound to the table and goes with it");
    database.Rename("Commodities", "Away");
    const Lines before = Screenful();
    EXPECT_EQ(Doing([&] { CancelSearch(); }),
              (Lines{Search, DatabaseBox("no such table: Commodities"), SlipStatement(0)}));
    EXPECT_EQ(Screenful(), before);
}

} // namespace
} // namespace Quillane
