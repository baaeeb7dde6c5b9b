// The filters of the party search, their statements, and the rows in the list.

#include "search/PartySearch.h"

#include <algorithm>

namespace Quillane::Testing {
namespace {

using SchPartyTest = PartySearch;

const Lines Nothing{"", "", ""};

TEST_F(SchPartyTest, OpensWithTheWholeBranchInOneStatement) {
    SchParty search;
    EXPECT_EQ(Sent(), Lines{});
    search.Show();
    EXPECT_EQ(Sent(), Lines{Statement()});
    EXPECT_EQ(search.TxtFilter.Text(), "");
    EXPECT_EQ(search.TxtFilterId.Text(), "");
    EXPECT_EQ(search.ActiveControlName(), "TxtFilter");
    EXPECT_EQ(search.Grid.Rows(), 38) << "every party of the branch with a city";
}

TEST_F(SchPartyTest, ListsOnlyAccountsThatBeginWith6) {
    AddParty("5016000", "Mill Farm Six");
    Open();
    const auto beginsWith6 = [](const std::string& id) { return id.starts_with('6'); };
    const Lines all = Ids();
    EXPECT_TRUE(std::all_of(all.begin(), all.end(), beginsWith6));
    for (const std::string_view name : {"Mill Farm", "Staff", "%"}) {
        Enter(screen->TxtFilter, name);
        const Lines ids = Ids();
        EXPECT_TRUE(std::all_of(ids.begin(), ids.end(), beginsWith6)) << name;
    }
    Enter(screen->TxtFilter, "");
    Enter(screen->TxtFilterId, "5016000");
    EXPECT_EQ(CurrentId(), all.back());
}

TEST_F(SchPartyTest, EachKeyInTheNameSendsAStatement) {
    Open();
    Driver().Type("sit");
    EXPECT_EQ(Sent(), (Lines{Named("s"), Named("si"), Named("sit")}));
    EXPECT_EQ(Ids(), Lines{"6010014"});
    EXPECT_EQ(CurrentLine(screen->Grid), "Party ID 6010014, Name Sitara Grain House, City Sahiwal");
    Driver().Press(Qt::CTRL | Qt::Key_A).Press(Qt::Key_Delete);
    EXPECT_EQ(Sent(), Lines{Statement()});
}

TEST_F(SchPartyTest, CityIsNotSearched) {
    Open();
    Driver().Type("lahore");
    EXPECT_EQ(Ids(), Lines{});
}

TEST_F(SchPartyTest, TextIsLimitedToThirtyCharacters) {
    Open();
    for (TextBox* box : {&screen->TxtFilter, &screen->TxtFilterId}) {
        Enter(*box, "123456789012345678901234567890123");
        EXPECT_EQ(box->Text(), "123456789012345678901234567890");
    }
}

TEST_F(SchPartyTest, WildcardsWorkInTheName) {
    Open();
    Enter(screen->TxtFilter, "n__r b");
    EXPECT_EQ(Ids(), (Lines{"6010004", "6010019"}));
    Enter(screen->TxtFilter, "s%house");
    EXPECT_EQ(Ids(), Lines{"6010014"});
    Enter(screen->TxtFilter, "[z]o");
    EXPECT_EQ(Ids(), Lines{"6010026"});
    Enter(screen->TxtFilter, "[");
    EXPECT_EQ(Sent(), Lines{Named("[")});
}

TEST_F(SchPartyTest, ApostropheIsReportedAtEachChangeUntilItIsRemoved) {
    Open();
    Enter(screen->TxtFilter, "sit");
    Sent();
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(OpenQuote))
        .Expect(DatabaseFailure(EngineWords("near \"x\": syntax error")));
    Driver().Type("'x");
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_EQ(Sent(), (Lines{Named("sit'"), Named("sit'x")}));
    EXPECT_EQ(Ids(), Lines{"6010014"}) << "the previous parties are still listed";
    answers.Expect(DatabaseFailure(OpenQuote));
    screen->TxtFilter.SetFocus();
    Driver().Press(Qt::Key_Backspace).Press(Qt::Key_Backspace);
    EXPECT_EQ(Ids(), Lines{"6010014"});
}

TEST_F(SchPartyTest, NothingCanBeSelectedAfterAFailedRefresh) {
    Open();
    Enter(screen->TxtFilter, "sit");
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(OpenQuote))
        .Expect(DatabaseFailure(Closed))
        .Expect(DatabaseFailure(Closed));
    Driver().Type("'");
    screen->CmdSelect.Click();
    DoubleClickFirstLine();
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyTest, SearchingAnIdAfterAFailedRefreshIsReported) {
    Open();
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(OpenQuote)).Expect(DatabaseFailure(Closed));
    Driver().Type("'");
    Enter(screen->TxtFilterId, "6");
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_TRUE(screen->IsLoaded());
}

TEST_F(SchPartyTest, IdMovesTheCurrentLineWithoutAStatement) {
    Open();
    const std::string last = Ids().back();
    Enter(screen->TxtFilterId, "601001");
    EXPECT_EQ(CurrentId(), last) << "not the full id yet";
    Driver().Type("4");
    EXPECT_EQ(CurrentId(), "6010014");
    Driver().Type("4");
    EXPECT_EQ(CurrentId(), last);
    EXPECT_EQ(Sent(), Lines{});
    EXPECT_EQ(screen->Grid.Rows(), 38);
}

TEST_F(SchPartyTest, PartOfAnIdMovesToTheLastLine) {
    Open();
    const std::string last = Ids().back();
    screen->TxtFilterId.SetFocus();
    for (const char digit : std::string("601001")) {
        Driver().Type(std::string(1, digit));
        EXPECT_EQ(CurrentId(), last) << screen->TxtFilterId.Text();
    }
}

TEST_F(SchPartyTest, EmptyIdMovesToTheFirstLine) {
    Open();
    const std::string first = Ids().front();
    Enter(screen->TxtFilterId, "6010014");
    ASSERT_EQ(CurrentId(), "6010014");
    Driver().Press(Qt::CTRL | Qt::Key_A).Press(Qt::Key_Delete);
    EXPECT_EQ(CurrentId(), first);
    Enter(screen->TxtFilterId, "6010014");
    Enter(screen->TxtFilterId, "   ");
    EXPECT_EQ(CurrentId(), first) << "blanks are not an id";
}

TEST_F(SchPartyTest, BlanksAroundAnIdAreCompared) {
    Open();
    const std::string last = Ids().back();
    for (const std::string_view id : {" 6010014", "6010014 ", "6010014  "}) {
        Enter(screen->TxtFilterId, id);
        EXPECT_EQ(CurrentId(), last) << "\"" << id << "\"";
    }
    Driver().Press(Qt::Key_Backspace).Press(Qt::Key_Backspace);
    EXPECT_EQ(CurrentId(), "6010014");
}

TEST_F(SchPartyTest, PaddedIdIsFound) {
    AddParty("6050001   ", "Padded");
    Open();
    Enter(screen->TxtFilterId, "6050001");
    EXPECT_EQ(CurrentLine(screen->Grid), "Party ID 6050001   , Name Padded, City Okara");
}

TEST_F(SchPartyTest, ApostropheInTheIdIsDoubled) {
    Open();
    const std::string last = Ids().back();
    for (const std::string_view id : {"'", "60'1", "6' or '1'='1", "''"}) {
        Enter(screen->TxtFilterId, id);
        EXPECT_EQ(CurrentId(), last) << id;
    }
    EXPECT_EQ(Sent(), Lines{});
}

TEST_F(SchPartyTest, IdWithAnApostropheIsFound) {
    AddParty("6''1", "Odd Number");
    Open();
    Enter(screen->TxtFilterId, "6'1");
    EXPECT_EQ(CurrentId(), "6'1");
}

TEST_F(SchPartyTest, WildcardsInAnIdAreLiteral) {
    Open();
    const std::string last = Ids().back();
    for (const std::string_view id : {"601%", "6010___", "*"}) {
        Enter(screen->TxtFilterId, id);
        EXPECT_EQ(CurrentId(), last) << id;
    }
}

TEST_F(SchPartyTest, IdIsSearchedOnlyInTheList) {
    Open();
    Enter(screen->TxtFilter, "noor");
    Enter(screen->TxtFilterId, "6010014");
    EXPECT_EQ(CurrentId(), "6010019") << "the last listed party";
    EXPECT_EQ(Ids(), (Lines{"6010004", "6010019"}));
}

TEST_F(SchPartyTest, NewNameMovesToTheFirstLine) {
    Open();
    Enter(screen->TxtFilterId, "6010014");
    ASSERT_EQ(CurrentId(), "6010014");
    Enter(screen->TxtFilter, "a");
    EXPECT_EQ(Sent(), Lines{Named("a")});
    EXPECT_EQ(CurrentId(), Ids().front());
    EXPECT_EQ(screen->TxtFilterId.Text(), "6010014") << "the id box keeps its text";
}

TEST_F(SchPartyTest, IdInAnEmptyListIsNotAFailure) {
    Open();
    Enter(screen->TxtFilter, "nobody at all");
    Enter(screen->TxtFilterId, "6010014");
    EXPECT_EQ(CurrentId(), "");
    Enter(screen->TxtFilterId, " ");
    EXPECT_EQ(CurrentId(), "");
}

TEST_F(SchPartyTest, EmptyListSelectsNothing) {
    Open();
    Enter(screen->TxtFilter, "nobody at all");
    EXPECT_EQ(screen->Grid.Rows(), 0);
    screen->CmdSelect.Click();
    DoubleClickFirstLine();
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyTest, SelectionIsClearedAfterTheListIsFilled) {
    Open();
    Enter(screen->TxtFilterId, "6010014");
    screen->CmdSelect.Click();
    ASSERT_EQ(Selected().front(), "6010014");
    database.Rename("Cities", "Towns");
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(EngineWords("no such table: Cities")));
    screen->Show();
    EXPECT_EQ(Selected().front(), "6010014") << "the loading ended at the list";
    screen->Unload();
    database.Rename("Towns", "Cities");
    screen->Show();
    EXPECT_EQ(Selected(), Nothing);
}

TEST_F(SchPartyTest, UnreadableTablesLeaveAnEmptyList) {
    database.Rename("Cities", "Towns");
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(EngineWords("no such table: Cities")));
    Open();
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(screen->Grid.Rows(), 0);
}

} // namespace
} // namespace Quillane::Testing
