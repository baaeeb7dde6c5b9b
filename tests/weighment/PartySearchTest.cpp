// F1 in the seller list: the party search, and the effect of its selection on the list.

#include "search/SchParty.h"
#include "weighment/OpeningFixture.h"

#include <QWindow>

namespace Quillane {
namespace {

using namespace Testing;

/// The screen with access to its key handling, to see what it leaves of a key.
class ScreenWithKeys : public FrmWeighment {
public:
    int AfterKeyDown(int key, int shift = 0) {
        Form_KeyDown(key, shift);
        return key;
    }
};

class PartySearch : public WeighmentTest {
protected:
    void SetUp() override {
        auto shown = std::make_unique<ScreenWithKeys>();
        keys_ = shown.get();
        screen = std::move(shown);
        screen->Show();
        screen->CboSeller.SetFocus();
    }
    /// Presses F1 and types a part of a name; the first matching party is selected.
    void Find(std::string_view name) {
        VisitModal search([&](Screen& modal) {
            auto& parties = dynamic_cast<SchParty&>(modal);
            ScreenDriver(modal).Type(name).Click(parties.CmdSelect);
        });
        ScreenDriver(*screen).Press(Qt::Key_F1);
    }
    void Cancel(const std::function<void()>& press) {
        VisitModal search([](Screen& modal) {
            ScreenDriver(modal).Click(dynamic_cast<SchParty&>(modal).CmdClose);
        });
        press();
    }

    ScreenWithKeys* keys_ = nullptr;
};

TEST_F(PartySearch, WritesNameAndCityIntoTheListAndMakesTheRowCurrent) {
    Find("Al-Barkat");
    EXPECT_EQ(screen->CboSeller.Text(), "Al-Barkat Commission Shop-Faisalabad");
    ASSERT_TRUE(screen->CboSeller.Bookmark());
    EXPECT_EQ(screen->CboSeller.ColumnText(1), "6010002");
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller");
}

// The returned text must be that of a row of the list, so that the save finds its id.
TEST_F(PartySearch, ReturnsARowOfTheListForEveryPartyThatItShows) {
    VisitModal search([this](Screen& modal) {
        auto& parties = dynamic_cast<SchParty&>(modal);
        const int rows = parties.Grid.Rows();
        EXPECT_GT(rows, 30);
        parties.Unload();
    });
    ScreenDriver(*screen).Press(Qt::Key_F1);
    for (const Lines& row :
         Stored("SELECT C.AccountName, Ct.CityName FROM Parties P JOIN ChartOfAccounts C "
                "ON P.PartyId = C.AccountNo JOIN Cities Ct ON P.CityId = Ct.CityId WHERE P.PartyId "
                "LIKE '6%'")) {
        const std::string shown =
            row[0].substr(1, row[0].size() - 2) + "-" + row[1].substr(1, row[1].size() - 2);
        EXPECT_TRUE(screen->CboSeller.FindRow(0, shown)) << shown;
    }
}

TEST_F(PartySearch, IsSavedWithTheIdOfTheParty) {
    FillIn();
    screen->CboSeller.SetFocus();
    Find("Rana");
    EXPECT_EQ(screen->CboSeller.Text(), "Rana & Sons-Gujranwala");
    BoxAnswers boxes;
    boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                  BoxAnswer::No},
                 BoxAnswer::No);
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1043"), "'6010007'");
}

TEST_F(PartySearch, OfAPartyThatIsNotInTheListShowsTheNameAndNoCurrentRow) {
    screen->CboSellerType.SetText("Brokers");
    Find("Al-Barkat");
    EXPECT_EQ(screen->CboSeller.Text(), "Al-Barkat Commission Shop-Faisalabad");
    EXPECT_FALSE(screen->CboSeller.Bookmark());
}

TEST_F(PartySearch, OfADuplicateNameMakesItsFirstRowCurrent) {
    RunBeside("UPDATE Parties SET CityId = 1 WHERE PartyId = '6010019'");
    screen->CboSellerType.SetText("Suppliers");
    VisitModal search([](Screen& modal) {
        auto& parties = dynamic_cast<SchParty&>(modal);
        parties.TxtFilterId.SetText("6010019");
        ScreenDriver(modal).Click(parties.CmdSelect);
        EXPECT_EQ(parties.SelectedPartyId, "6010019");
    });
    ScreenDriver(*screen).Press(Qt::Key_F1);
    EXPECT_EQ(screen->CboSeller.Text(), "Noor Brothers-Lahore");
    EXPECT_EQ(screen->CboSeller.Bookmark(), screen->CboSeller.FindRow(0, "Noor Brothers-Lahore"));
}

TEST_F(PartySearch, ReplacesTheTypedTextAndClosesTheOpenList) {
    ScreenDriver(*screen).Type("cha");
    ASSERT_TRUE(screen->CboSeller.IsDroppedDown());
    Find("Rana");
    EXPECT_EQ(screen->CboSeller.Text(), "Rana & Sons-Gujranwala");
    EXPECT_FALSE(screen->CboSeller.IsDroppedDown());
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    EXPECT_EQ(screen->CboSeller.Text(), "Rana & Sons-Gujranwala");
    EXPECT_EQ(screen->CboSeller.ColumnText(1), "6010007");
}

TEST_F(PartySearch, ClosedWithoutASelectionKeepsTheSeller) {
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    Cancel([this] { ScreenDriver(*screen).Press(Qt::Key_F1); });
    EXPECT_EQ(screen->CboSeller.Text(), "Chaudhry Grain Traders-Okara");
    EXPECT_EQ(screen->CboSeller.ColumnText(1), "6010001");
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller");
}

TEST_F(PartySearch, SwallowsTheKeyOnlyAfterASelection) {
    int left = 0;
    Cancel([&] { left = keys_->AfterKeyDown(Key::F1); });
    EXPECT_EQ(left, Key::F1);
    VisitModal search(
        [](Screen& modal) { ScreenDriver(modal).Click(dynamic_cast<SchParty&>(modal).CmdSelect); });
    EXPECT_EQ(keys_->AfterKeyDown(Key::F1), 0);
    EXPECT_NE(screen->CboSeller.Text(), "");
}

TEST_F(PartySearch, IsModalOverTheWeighmentScreen) {
    VisitModal search([this](Screen& modal) {
        EXPECT_EQ(modal.windowHandle()->transientParent(), screen->windowHandle());
        modal.Unload();
    });
    ScreenDriver(*screen).Press(Qt::Key_F1);
}

TEST_F(PartySearch, DoesNothingElsewhere) {
    for (VisualControl* control : std::initializer_list<VisualControl*>{
             &screen->CboCommodity, &screen->CboSellerType, &screen->TxtVehicleNo, &screen->Grid,
             &screen->BtnClear}) {
        control->SetFocus();
        EXPECT_EQ(keys_->AfterKeyDown(Key::F1), Key::F1) << control->Name();
        ScreenDriver(*screen).Press(Qt::Key_F1);
    }
    EXPECT_FALSE(screen->BtnSave.Enabled());
}

TEST_F(PartySearch, ChangesNeitherTheModeNorTheButtons) {
    Find("Rana");
    EXPECT_EQ(screen->ScreenMode, "NewMode");
    EXPECT_FALSE(screen->BtnSave.Enabled());
    EXPECT_TRUE(screen->BtnOpen.Enabled());
}

TEST_F(PartySearch, RunsItsStatementsAndMovesNoFocus) {
    Trace trace(*screen, line);
    Find("Rana");
    const std::string all =
        "Select P.PartyId,C.AccountName,Ct.CityName from Parties P Inner Join ChartofAccounts C On "
        "P.PartyId = C.AccountNo Inner Join Cities CT On P.CityId = CT.CityId wHERE p.PartyId Like "
        "'6%'";
    EXPECT_EQ(
        trace.Take(),
        (Lines{all, all + " And C.AccountName Like '%R%'", all + " And C.AccountName Like '%Ra%'",
               all + " And C.AccountName Like '%Ran%'", all + " And C.AccountName Like '%Rana%'"}));
}

TEST_F(PartySearch, WhoseListFailsReportsItAndStaysOpen) {
    database.Rename("Cities", "Away");
    BoxAnswers boxes;
    boxes.Expect(Critical(EngineWords("no such table: Cities"), "Database"));
    Cancel([this] { ScreenDriver(*screen).Press(Qt::Key_F1); });
    EXPECT_EQ(screen->CboSeller.Text(), "");
    EXPECT_TRUE(screen->IsLoaded());
}

TEST_F(PartySearch, ForAStoredArrivalIsSavedOnceAKeyHasChangedIt) {
    std::int16_t id = 1040;
    screen->LoadArrival(id);
    screen->CboSeller.SetFocus();
    Find("Rana");
    EXPECT_FALSE(screen->BtnSave.Enabled());
    ScreenDriver(*screen).Press(Qt::Key_Tab);
    ASSERT_TRUE(screen->BtnSave.Enabled());
    BoxAnswers boxes;
    boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                  BoxAnswer::No},
                 BoxAnswer::No);
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT SellerId FROM Arrivals WHERE ArrivalID = 1040"), "'6010007'");
}

} // namespace
} // namespace Quillane
