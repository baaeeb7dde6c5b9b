// The keys of the party search, the ways to close it, and its result.

#include "search/PartySearch.h"

namespace Quillane::Testing {
namespace {

class SchPartyKeys : public PartySearch {
protected:
    /// Replaces a table by a copy without its constraints, and changes the rows.
    void ChangeUnbound(const std::string& table, std::string_view change) {
        database.Loosen(table);
        Run(change);
    }
};

const Lines Nothing{"", "", ""};
const Lines Sitara{"6010014", "Sitara Grain House", "Sahiwal"};

TEST_F(SchPartyKeys, TabOrderIsNameListButtonsId) {
    Open();
    Lines visited{screen->ActiveControlName()};
    for (int press = 0; press < 5; ++press) {
        Driver().Press(Qt::Key_Tab);
        visited.push_back(screen->ActiveControlName());
    }
    EXPECT_EQ(visited,
              (Lines{"TxtFilter", "Grid", "CmdSelect", "CmdClose", "TxtFilterId", "TxtFilter"}));
    EXPECT_EQ(Sent(), Lines{});
}

TEST_F(SchPartyKeys, DownMovesFromTheBoxesToTheListWithoutChangingItsLine) {
    Open();
    const Lines ids = Ids();
    for (TextBox* box : {&screen->TxtFilter, &screen->TxtFilterId}) {
        box->SetFocus();
        Driver().Press(Qt::Key_Down);
        EXPECT_EQ(screen->ActiveControlName(), "Grid") << "from " << box->Name();
        EXPECT_EQ(CurrentId(), ids[0]);
    }
    Driver().Press(Qt::Key_Down);
    EXPECT_EQ(CurrentId(), ids[1]);
}

TEST_F(SchPartyKeys, DownHandlerOfTheIdBoxDoesNothingUnlessTheBoxIsActive) {
    Open();
    int down = Key::Down;
    screen->CmdClose.SetFocus();
    screen->TxtFilterId.KeyDown(down, ShiftState::None);
    EXPECT_EQ(screen->ActiveControlName(), "CmdClose");
    screen->TxtFilter.KeyDown(down, ShiftState::None);
    EXPECT_EQ(screen->ActiveControlName(), "Grid");
}

TEST_F(SchPartyKeys, DownMovesToAnEmptyListToo) {
    Open();
    Enter(screen->TxtFilter, "nobody at all");
    Driver().Press(Qt::Key_Down).Press(Qt::Key_Down);
    EXPECT_EQ(screen->ActiveControlName(), "Grid");
}

TEST_F(SchPartyKeys, EnterEscAndCtrlQHaveNoSpecialMeaning) {
    Open();
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Return), QKeyCombination(Qt::Key_Enter),
          QKeyCombination(Qt::Key_Escape), Qt::CTRL | Qt::Key_Q, Qt::SHIFT | Qt::Key_Return}) {
        for (const std::string_view name : {"TxtFilter", "TxtFilterId", "Grid"}) {
            Driver().Named(name).SetFocus();
            Driver().Press(key);
            EXPECT_EQ(screen->ActiveControlName(), name);
            EXPECT_TRUE(screen->IsLoaded());
        }
    }
    for (const std::string_view name : {"CmdSelect", "CmdClose"}) {
        Driver().Named(name).SetFocus();
        Driver().Press(Qt::Key_Escape);
        EXPECT_TRUE(screen->IsLoaded());
    }
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyKeys, EnterOnSelectReturnsTheCurrentLine) {
    Open();
    Enter(screen->TxtFilterId, "6010014");
    screen->CmdSelect.SetFocus();
    Driver().Press(Qt::Key_Return);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Sitara);
}

TEST_F(SchPartyKeys, LineChosenByArrowsIsReturned) {
    Open();
    Enter(screen->TxtFilter, "noor");
    Driver().Press(Qt::Key_Down).Press(Qt::Key_Down).Press(Qt::Key_Tab).Press(Qt::Key_Space);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(Selected(), (Lines{"6010019", "Noor Brothers", "Sahiwal"}));
}

TEST_F(SchPartyKeys, DoubleClickSelects) {
    Open();
    Enter(screen->TxtFilter, "sitara");
    DoubleClickFirstLine();
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Sitara);
}

TEST_F(SchPartyKeys, EnterOnCancelReturnsNothing) {
    Open();
    screen->SelectedPartyName = "left from before";
    screen->CmdClose.SetFocus();
    Driver().Press(Qt::Key_Return);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyKeys, ClosingTheWindowReturnsNothing) {
    Open();
    screen->Grid.SetFocus();
    Driver().Press(Qt::Key_Down);
    screen->close();
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyKeys, CityWithoutANameIsReportedAndIdAndNameAreKept) {
    ChangeUnbound("Cities", "Update Cities Set CityName = Null Where CityId = 4");
    Open();
    Enter(screen->TxtFilterId, "6010014");
    BoxAnswers answers;
    answers.Expect(Critical("Invalid use of Null", "Quillane"));
    screen->CmdSelect.Click();
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(Selected(), (Lines{"6010014", "Sitara Grain House", ""}));
}

TEST_F(SchPartyKeys, PartyWithoutANameIsReportedAndItsIdIsKept) {
    ChangeUnbound("ChartOfAccounts",
                  "Update ChartOfAccounts Set AccountName = Null Where AccountNo = '6010014'");
    Open();
    Enter(screen->TxtFilterId, "6010014");
    BoxAnswers answers;
    answers.Expect(Critical("Invalid use of Null", "Quillane"));
    screen->CmdSelect.Click();
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(Selected(), (Lines{"6010014", "", ""}));
}

TEST_F(SchPartyKeys, ScreenIsResetEachTimeItIsShown) {
    SchParty search;
    RunModal(search, [&](Screen& shown) {
        ScreenDriver(shown).Type("sit");
        search.TxtFilterId.SetFocus();
        ScreenDriver(shown).Type("6010014");
        search.CmdSelect.Click();
    });
    EXPECT_EQ(search.SelectedPartyName, "Sitara Grain House");
    Sent();
    RunModal(search, [&](Screen& shown) {
        EXPECT_EQ(Sent(), Lines{Statement()});
        EXPECT_EQ(search.SelectedPartyId, "");
        EXPECT_EQ(search.SelectedPartyName, "");
        EXPECT_EQ(search.SelectedPartyCity, "");
        EXPECT_EQ(search.TxtFilter.Text(), "");
        EXPECT_EQ(search.TxtFilterId.Text(), "");
        EXPECT_EQ(search.ActiveControlName(), "TxtFilter");
        EXPECT_EQ(search.Grid.Rows(), 38);
        ScreenDriver(shown).Type("n");
        EXPECT_EQ(Sent(), Lines{Named("n")}) << "the name box still refreshes the list";
        shown.close();
    });
    EXPECT_EQ(search.SelectedPartyName, "");
}

} // namespace
} // namespace Quillane::Testing
