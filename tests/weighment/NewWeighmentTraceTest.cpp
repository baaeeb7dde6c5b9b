// Loading the screen, a new weighment and clearing, each as the exact list of its actions.

#include "data/Con.h"
#include "platform/forms/controls/ComboBox.h"
#include "platform/forms/core/EventBoundary.h"
#include "weighment/StateWatch.h"
#include "weighment/TraceLines.h"

#include <QTimer>

namespace Quillane {
namespace {

using Testing::BlankingAnEmptyScreen;
using Testing::BlankingAScreenOf;
using Testing::Critical;
using Testing::Joined;
using Testing::Lines;
using Testing::NextId;
using Testing::Opens200;
using Testing::Opens300;
using Testing::PortRows;
using Testing::StatementsOf;
using Testing::StateWatch;
using Testing::Trace;

const std::string AllSellers =
    "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
    "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
    "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId  ORDER BY "
    "ChartOfAccounts.AccountName";
const std::string WheatBought =
    " select commodityid as id, dbo.fungetcommodity(commodityid) as name from commodities Where 1 "
    "= 1 and IsPurchaseable = 1 and IsWheatCommodity = 1";
const std::string BagTypes =
    "select BagsTypeID as ID, BagsType As Name from bagstypes Order By BagsType";
const std::string BagClasses = "select BagsClassid as ID, BagsClass as Name from bagsclasses";

Lines NumberedAnew(int id) {
    return {NextId, "TxtArrivalId = '" + std::to_string(id) + "'"};
}

const Lines ListsFilled{AllSellers, WheatBought, BagTypes, BagClasses};
const Lines FirstFocus{"GotFocus TxtArrivalId", "TxtArrivalId 0xC0FFFF"};
const Lines FirstButtons{"BtnPrint off", "BtnRemove off", "BtnSave off"};
const Lines Opened{"TxtInitialGrossWeight 0xFFFFFF", "TxtTareWeight 0xFFFFFF"};

std::string CannotOpen(const std::string& device) {
    return "Box \"Serial line\" [critical, OK] Port 1 (" + device +
           ") cannot be opened: another program is using it.";
}

const std::string Unread = "Port 1 is closed: nothing can be read from it.";
const std::string NoArrivals = Testing::DatabaseBox("no such table: Arrivals");

class NewWeighmentTrace : public Testing::WeighmentTest {
protected:
    /// Loads and shows a screen under a trace of all actions.
    Lines Loading() {
        screen = std::make_unique<FrmWeighment>();
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        screen->Show();
        return trace.Take();
    }

    Lines StartingAnew() {
        Trace trace(*screen, line);
        StateWatch watch(*screen, trace);
        screen->NewWeighment();
        return trace.Take();
    }

    std::vector<std::string> NamesIn(const TDBCombo& list) {
        std::vector<std::string> names;
        for (int row = 0; list.Array() && row < list.Array()->RowCount(); ++row)
            names.push_back(list.Array()->Get(row, 0));
        return names;
    }
};

TEST_F(NewWeighmentTrace, OfLoadingForFullRights) {
    EXPECT_EQ(Loading(), Joined({{PortRows},
                                 FirstButtons,
                                 {"TxtWeight locked"},
                                 Opened,
                                 BlankingAnEmptyScreen(),
                                 {Opens200},
                                 NumberedAnew(1043),
                                 {Opens300},
                                 ListsFilled,
                                 FirstFocus}));
    EXPECT_TRUE(screen->ChkFinalized.Visible());
    EXPECT_TRUE(screen->ChkManualWeight.Visible());
    EXPECT_TRUE(screen->FrminVisible.Visible());
}

TEST_F(NewWeighmentTrace, OfLoadingForARestrictedUser) {
    SignInAsGate();
    EXPECT_EQ(Loading(), Joined({{"TxtWeight locked", "ChkFinalized hidden", "FrminVisible hidden",
                                  "ChkManualWeight hidden"},
                                 {PortRows},
                                 FirstButtons,
                                 Opened,
                                 BlankingAnEmptyScreen(),
                                 {Opens200},
                                 NumberedAnew(1043),
                                 {Opens300},
                                 ListsFilled,
                                 FirstFocus}));
    EXPECT_TRUE(screen->TxtWeight.Locked());
    EXPECT_FALSE(screen->ChkFinalized.Visible());
    EXPECT_FALSE(screen->ChkManualWeight.Visible());
    EXPECT_FALSE(screen->FrminVisible.Visible());
}

TEST_F(NewWeighmentTrace, OfLoadingLeavesTheFirstState) {
    ShowScreen();
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->ArrivalNo, 1043);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->DtpArrivalDate.Value(), Today());
    EXPECT_EQ(screen->BagRows.RowCount(), 0);
    EXPECT_EQ(screen->BagRows.ColumnCount(), 3);
    EXPECT_EQ(screen->TxtNetWeight.Text(), "0");
    EXPECT_EQ(screen->TxtMoundKgs.Text(), "0-0");
    EXPECT_TRUE(screen->CM.PortOpen());
    EXPECT_TRUE(screen->Timer.Enabled());
    EXPECT_EQ(screen->Timer.Interval(), 300);
    EXPECT_TRUE(screen->TxtWeight.Locked());
}

TEST_F(NewWeighmentTrace, OfLoadingFillsTheLists) {
    ShowScreen();
    EXPECT_EQ(NamesIn(screen->CboSellerType),
              (std::vector<std::string>{"ALL", "Suppliers", "Buyers", "Brokers"}));
    EXPECT_EQ(screen->CboSellerType.Bookmark(), 0);
    EXPECT_EQ(screen->CboSellerType.Text(), "ALL");
    EXPECT_GT(NamesIn(screen->CboSeller).size(), 30u);
    EXPECT_EQ(screen->CboSeller.Text(), "");
    EXPECT_TRUE(screen->CboCommodity.FindRow(0, "Wheat").has_value());
    EXPECT_FALSE(NamesIn(screen->CboBagType).empty());
    EXPECT_FALSE(NamesIn(screen->CboBagClass).empty());
    for (const TDBCombo* list : {&screen->CboBagClass, &screen->CboBagType, &screen->CboCommodity,
                                 &screen->CboSeller, &screen->CboSellerType})
        EXPECT_TRUE(list->Layout.LimitToList && list->Layout.AutoDropDown) << list->Name();
}

TEST_F(NewWeighmentTrace, OfAListThatCannotBeFilledContinuesWithTheNext) {
    database.Rename("BagsTypes", "Elsewhere");
    screen = std::make_unique<FrmWeighment>();
    Trace trace(*screen, line);
    screen->Show();
    EXPECT_EQ(StatementsOf(trace.Take()), Joined({{PortRows, NextId}, ListsFilled}));
    EXPECT_TRUE(NamesIn(screen->CboBagType).empty());
    EXPECT_FALSE(NamesIn(screen->CboBagClass).empty());
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
}

TEST_F(NewWeighmentTrace, OfAListThatCannotBeFilledReportsWhy) {
    database.Rename("BagsTypes", "Elsewhere");
    Testing::BoxAnswers answers;
    answers.Expect(Critical(EngineWords("no such table: bagstypes"), "Database"));
    ShowScreen();
}

TEST_F(NewWeighmentTrace, OfLoadingWithoutADatabaseReportsEachStatementAndStays) {
    Con->Close();
    const std::string box = "Operation is not allowed when the object is closed.";
    Testing::BoxAnswers answers;
    for (int i = 0; i < 5; ++i)
        answers.Expect(Critical(box, "Database"));
    ShowScreen();
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(screen->ActiveControlName(), "TxtArrivalId");
    screen->Timer.SetEnabled(false);
    database.Open(*Con);
}

TEST_F(NewWeighmentTrace, OfAFilledInScreen) {
    ShowScreen();
    FillIn();
    screen->ChkFinalized.SetValue(1);
    EXPECT_EQ(StartingAnew(), Joined({{PortRows},
                                      {"LostFocus BtnSave", "GotFocus BtnClear", "BtnSave off"},
                                      BlankingAScreenOf("8220", "205-20", {"ChkFinalized = 0"}),
                                      {"TxtArrivalId 0xFFFFFF"},
                                      {Opens200},
                                      {"BtnOpen on"},
                                      NumberedAnew(1043),
                                      {Opens300}}));
    EXPECT_EQ(screen->BagRows.RowCount(), 0);
    EXPECT_EQ(screen->Grid.ColumnText(0), "");
    EXPECT_EQ(screen->ChkFinalized.Value(), 0);
    for (const TDBCombo* list : {&screen->CboCommodity, &screen->CboSeller, &screen->CboSellerType,
                                 &screen->CboBagClass, &screen->CboBagType}) {
        EXPECT_EQ(list->Text(), "") << list->Name();
        EXPECT_FALSE(list->Bookmark()) << list->Name();
        EXPECT_FALSE(NamesIn(*list).empty()) << "lists keep their contents: " << list->Name();
    }
}

TEST_F(NewWeighmentTrace, OfAStoredWeighment) {
    ShowScreen();
    FillInOpened(1040);
    screen->TxtGrossWeight.SetEnabled(false);
    screen->TxtInitialGrossWeight.SetEnabled(false);
    screen->SetButtonState(3);
    screen->TxtVehicleNo.SetFocus();
    screen->ChkFinalized.SetValue(1);
    const Lines filled = BlankingAScreenOf("8220", "205-20", {"ChkFinalized = 0"});
    EXPECT_EQ(StartingAnew(), Joined({{PortRows},
                                      {"BtnPrint off", "BtnRemove off", "TxtInitialGrossWeight on"},
                                      filled,
                                      {"TxtArrivalId on", "TxtArrivalId 0xFFFFFF"},
                                      {Opens200},
                                      {"CmdGrossWeight on", "CmdTareWeight on"},
                                      NumberedAnew(1043),
                                      {Opens300}}))
        << "the caller sets the focus";
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_FALSE(screen->TxtGrossWeight.Enabled()) << "nothing restores it";
}

TEST_F(NewWeighmentTrace, WithTheManualWeightCheckedReturnsToTheLiveReading) {
    ShowScreen();
    screen->ChkManualWeight.SetValue(1);
    screen->TxtWeight.SetText("1250");
    EXPECT_FALSE(screen->Timer.Enabled());
    EXPECT_FALSE(screen->TxtWeight.Locked());
    EXPECT_EQ(StartingAnew(),
              Joined({{PortRows},
                      BlankingAnEmptyScreen({"ChkManualWeight = 0", "TxtWeight locked"}),
                      {"TxtArrivalId 0xFFFFFF"},
                      {Opens200},
                      NumberedAnew(1043),
                      {Opens300}}));
    EXPECT_EQ(screen->ChkManualWeight.Value(), 0);
    EXPECT_TRUE(screen->Timer.Enabled());
    EXPECT_TRUE(screen->TxtWeight.Locked());
}

TEST_F(NewWeighmentTrace, WithAFailingIdEndsWithoutAnIdAndDoesNotOpenTheLineAgain) {
    ShowScreen();
    screen->DtpArrivalDate.SetValue(AddDays(Today(), -3));
    database.Rename("Arrivals", "Elsewhere");
    EXPECT_EQ(StartingAnew(), Joined({{PortRows},
                                      BlankingAnEmptyScreen(),
                                      {"TxtArrivalId 0xFFFFFF"},
                                      {Opens200, NextId, NoArrivals}}));
    EXPECT_EQ(screen->TxtArrivalId.Text(), "");
    EXPECT_EQ(screen->ArrivalNo, 0);
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_EQ(screen->DtpArrivalDate.Value(), AddDays(Today(), -3));
    EXPECT_EQ(screen->Timer.Interval(), 200);
    EXPECT_TRUE(screen->CM.PortOpen());
}

TEST_F(NewWeighmentTrace, WithoutLineSettingsEnds) {
    ShowScreen();
    FillIn();
    database.Rename("PortSettings", "Elsewhere");
    EXPECT_EQ(StartingAnew(),
              (Lines{PortRows, Testing::DatabaseBox("no such table: PortSettings")}));
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

TEST_F(NewWeighmentTrace, ReadsTheLineSettingsAgain) {
    ShowScreen();
    RunBeside("UPDATE PortSettings SET RegistryValue = '2400,e,7,1' WHERE RegistryKey = "
              "'PortSettings'");
    screen->NewWeighment();
    EXPECT_EQ(screen->CM.Settings(), "2400,e,7,1");
}

TEST_F(NewWeighmentTrace, WithTheLineInUseReportsItTwice) {
    Screen elsewhere("Elsewhere", "Elsewhere");
    MSComm other(elsewhere, "CM");
    other.SetPortOpen(true);
    Lines trace = Loading();
    // If filling the lists takes long, the first tick is due before the screen is shown.
    std::erase(trace, "Box \"Serial line\" [critical, OK] " + Unread);
    const Lines expected = Joined({{PortRows},
                                   FirstButtons,
                                   {"TxtWeight locked"},
                                   Opened,
                                   BlankingAnEmptyScreen(),
                                   {Opens200, CannotOpen(line.Device())},
                                   NumberedAnew(1043),
                                   {Opens300, CannotOpen(line.Device())},
                                   ListsFilled,
                                   FirstFocus});
    EXPECT_EQ(trace, expected) << "the screen opens nevertheless";
    EXPECT_EQ(screen->Timer.Interval(), 300);
    Testing::BoxAnswers answers;
    const auto closed = Critical(Unread, "Serial line");
    answers.Expect(closed).Expect(closed);
    EXPECT_TRUE(Testing::WaitFor([&] {
        if (answers.Remaining() == 0)
            screen->Timer.SetEnabled(false);
        return answers.Remaining() == 0;
    })) << "then once for each tick";
}

TEST_F(NewWeighmentTrace, LetsPendingEventsRunAfterTheIdAndTheDateAndBeforeTheLine) {
    ShowScreen();
    Trace trace(*screen, line);
    screen->DtpArrivalDate.SetValue(AddDays(Today(), -3));
    QTimer::singleShot(
        0, [&] { trace.Note("a pending event, on " + ShownDate(screen->DtpArrivalDate.Value())); });
    screen->NewWeighment();
    const Lines done = trace.Take();
    ASSERT_GE(done.size(), 3u);
    EXPECT_EQ(Lines(done.end() - 3, done.end()),
              (Lines{"TxtArrivalId = '1043'", "a pending event, on 20/11/2026", Opens300}));
}

TEST_F(NewWeighmentTrace, EndsIfAPendingEventClosesTheScreen) {
    ShowScreen();
    Trace trace(*screen, line);
    QTimer::singleShot(0, [&] { screen->Unload(); });
    EXPECT_THROW(screen->NewWeighment(), ScreenGone);
    EXPECT_EQ(trace.Take().back(), "TxtArrivalId = '1043'");
    EXPECT_FALSE(screen->CM.PortOpen());
}

TEST_F(NewWeighmentTrace, TakesTheIdAfterTheHighestOne) {
    RunBeside("DELETE FROM PurchaseBody; DELETE FROM LaboratoryReports; DELETE FROM ArrivalsBody; "
              "DELETE FROM Arrivals WHERE ArrivalID > 1040");
    ShowScreen();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1041") << "ids are reused";
    RunBeside("DELETE FROM Arrivals");
    screen->NewWeighment();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1") << "on a database with no arrivals";
    EXPECT_EQ(screen->ArrivalNo, 1);
}

TEST_F(NewWeighmentTrace, ReportsAnIdBeyondTheRange) {
    RunBeside("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
              "(2147483647, '2026-11-20T00:00:00', 1, '6010001')");
    Testing::BoxAnswers answers;
    // The embedded engine continues to count; SQL Server counts in the 32 bits of the column.
    answers.Expect(OnSqlServer() ? Critical(EngineWords(""), "Database")
                                 : Critical("Overflow", "Quillane"));
    ShowScreen();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "");
    EXPECT_EQ(screen->ArrivalNo, 0);
    EXPECT_TRUE(screen->CM.PortOpen());
}

TEST_F(NewWeighmentTrace, ShowsTodayWithoutAChangeEvent) {
    ShowScreen();
    screen->DtpArrivalDate.SetValue(AddDays(Today(), -3));
    screen->NewWeighment();
    EXPECT_EQ(screen->DtpArrivalDate.Value(), Today());
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_FALSE(screen->BtnSave.Enabled());
}

TEST_F(NewWeighmentTrace, OfClearingOnly) {
    ShowScreen();
    FillInOpened(1040);
    screen->ChkFinalized.SetValue(1);
    screen->TxtArrivalId.SetEnabled(false);
    screen->TxtArrivalId.SetBackColor(ClosedGrey);
    screen->DtpArrivalDate.SetEnabled(false);
    const Date day = AddDays(Today(), -3);
    screen->DtpArrivalDate.SetValue(day);
    Trace trace(*screen, line);
    StateWatch watch(*screen, trace);
    screen->ClearControls();
    EXPECT_EQ(trace.Take(),
              Joined({BlankingAScreenOf("8220", "205-20", {"ChkFinalized = 0"}),
                      {"TxtArrivalId on", "TxtArrivalId 0xFFFFFF", "DtpArrivalDate on"}}));
    EXPECT_FALSE(screen->IsOpened);
    EXPECT_EQ(screen->DtpArrivalDate.Value(), day) << "the date does not change";
    EXPECT_EQ(screen->BagRows.RowCount(), 2) << "the bag lines do not change either";
}

TEST_F(NewWeighmentTrace, OfClearingPutsAPlainListOnItsFirstEntry) {
    ShowScreen();
    ComboBox plain(*screen, "CboPlain", {"first", "second"});
    plain.SetListIndex(1);
    screen->ClearControls();
    EXPECT_EQ(plain.ListIndex(), 0);
}

TEST_F(NewWeighmentTrace, OfClearingEndsAtAFailure) {
    ShowScreen();
    ComboBox empty(*screen, "CboEmpty");
    screen->IsOpened = true;
    Testing::BoxAnswers answers;
    answers.Expect(Critical("Invalid procedure call or argument", "Quillane"));
    screen->ClearControls();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "") << "the controls before it are cleared";
    EXPECT_TRUE(screen->IsOpened) << "the controls after it are not";
}

} // namespace
} // namespace Quillane
