// The filters of the arrival search, their statements, and the rows in the list.

#include "search/SchArrivals.h"

#include "platform/runtime/Date.h"
#include "search/ArrivalSearch.h"

namespace Quillane::Testing {
namespace {

using SchArrivalsTest = ArrivalSearch;

TEST_F(SchArrivalsTest, OpensWithTheLastYearInOneStatement) {
    SchArrivals search;
    EXPECT_EQ(Sent(), Lines{});
    search.Show();
    EXPECT_EQ(Sent(), Lines{Statement()});
    EXPECT_EQ(ShownDate(search.DtpFromDate.Value()), "20/11/2025");
    EXPECT_EQ(ShownDate(search.DtpToDate.Value()), "20/11/2026");
    EXPECT_EQ(search.TxtFilterId.Text(), "");
    EXPECT_EQ(search.TxtFilter.Text(), "");
    EXPECT_EQ(search.SelectedArrivalId, 0);
    EXPECT_EQ(search.ActiveControlName(), "TxtFilterId");
}

TEST_F(SchArrivalsTest, NewestIsFirstAndDatesAreDayMonthYear) {
    Open();
    EXPECT_EQ(Ids(), (Lines{"1042", "1041", "1040", "1039", "1038", "1037", "1036", "1035", "1034",
                            "1033", "1032", "1031"}));
    EXPECT_EQ(CurrentLine(screen->GrdSch), "ID 1042, Arrival Date 20/11/2026, Party Name Sitara "
                                           "Grain House-Sahiwal, Commodity Wheat Seed");
}

TEST_F(SchArrivalsTest, BothDatesOfTheRangeAreIncluded) {
    AddArrival("9", "2025-11-19");
    AddArrival("10", "2025-11-20");
    AddArrival("2001", "2026-11-20");
    AddArrival("2002", "2026-11-21");
    Open();
    const Lines ids = Ids();
    EXPECT_EQ(ids.front(), "2001");
    EXPECT_EQ(ids.back(), "10");
}

TEST_F(SchArrivalsTest, EachKeyInTheIdSendsAStatement) {
    Open();
    Driver().Type("12x");
    EXPECT_EQ(Sent(), (Lines{Statement(" And Arrivals.ArrivalId = 1"),
                             Statement(" And Arrivals.ArrivalId = 12"),
                             Statement(" And Arrivals.ArrivalId = 12")}));
    EXPECT_EQ(Ids(), Lines{});
}

TEST_F(SchArrivalsTest, WholeIdFindsTheArrival) {
    Open();
    Driver().Type("103");
    EXPECT_EQ(Ids(), Lines{});
    Driver().Type("8");
    EXPECT_EQ(Ids(), Lines{"1038"});
    Driver().Press(Qt::Key_Backspace);
    EXPECT_EQ(Ids(), Lines{});
}

TEST_F(SchArrivalsTest, LettersAndABlankAreTheIdZero) {
    Open();
    for (const std::string_view typed : {"abc", " ", "   "}) {
        screen->TxtFilterId.SetText("");
        Sent();
        Driver().Type(typed);
        EXPECT_EQ(Sent().back(), Statement(" And Arrivals.ArrivalId = 0"));
        EXPECT_EQ(Ids(), Lines{}) << typed;
    }
}

TEST_F(SchArrivalsTest, IdIsSearchedOnlyWithinTheRange) {
    AddArrival("77", "2025-11-19");
    Open();
    Driver().Type("77");
    EXPECT_EQ(Ids(), Lines{});
    screen->DtpFromDate.SetFocus();
    Driver().Press(Qt::Key_Down);
    EXPECT_EQ(Ids(), Lines{"77"});
}

TEST_F(SchArrivalsTest, PartOfNameOrCityFilters) {
    Open();
    EnterName("noor");
    EXPECT_EQ(Sent(), (Lines{Statement(Named("n")), Statement(Named("no")), Statement(Named("noo")),
                             Statement(Named("noor"))}));
    EXPECT_EQ(Ids(), Lines{"1040"});
    EnterName("-sahiwal");
    EXPECT_EQ(Ids(), Lines{"1042"});
}

TEST_F(SchArrivalsTest, AllFiltersAreCombined) {
    Open();
    Driver().Type("1042");
    screen->TxtFilter.SetText("Sitara");
    EXPECT_EQ(Sent().back(), Statement(" And Arrivals.ArrivalId = 1042" + Named("Sitara")));
    EXPECT_EQ(Ids(), Lines{"1042"});
    screen->TxtFilter.SetText("Noor");
    EXPECT_EQ(Ids(), Lines{});
}

TEST_F(SchArrivalsTest, EmptyTextsListTheWholeRange) {
    Open();
    Driver().Type("1042");
    EnterName("noor");
    EXPECT_EQ(Ids(), Lines{});
    EnterName("");
    screen->TxtFilterId.SetText("");
    EXPECT_EQ(Sent().back(), Statement());
    EXPECT_EQ(Ids().size(), 12U);
}

TEST_F(SchArrivalsTest, NamesOfAnyScriptAreFound) {
    Open();
    screen->TxtFilter.SetFocus();
    Driver().Commit("محمد اسلم");
    EXPECT_EQ(Ids(), Lines{"1034"});
    EnterName("");
    Driver().Commit("zoë");
    EXPECT_EQ(Ids(), Lines{"1039"});
}

TEST_F(SchArrivalsTest, WildcardsWorkInTheName) {
    Open();
    EnterName("noo_ b");
    EXPECT_EQ(Ids(), Lines{"1040"});
    EnterName("s%house");
    EXPECT_EQ(Ids(), Lines{"1042"});
    EnterName("[zw]");
    EXPECT_EQ(Sent().back(), Statement(Named("[zw]")));
    EXPECT_EQ(Ids(), (Lines{"1042", "1039", "1037", "1036", "1033"}));
    EnterName("[");
    EXPECT_EQ(Sent().back(), Statement(Named("[")));
}

TEST_F(SchArrivalsTest, ApostropheIsReportedAtEachChangeUntilItIsRemoved) {
    Open();
    const Box openQuote =
        DatabaseFailure(EngineWords("unrecognized token: \"' Order By Arrivals.ArrivalId desc\""));
    EnterName("noor");
    Sent();
    BoxAnswers answers;
    answers.Expect(openQuote).Expect(DatabaseFailure(EngineWords("near \"x\": syntax error")));
    Driver().Type("'");
    EXPECT_EQ(screen->GrdSch.Rows(), 0);
    EXPECT_EQ(CurrentLine(screen->GrdSch), "");
    Driver().Type("x");
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_EQ(Sent(), (Lines{Statement(Named("noor'")), Statement(Named("noor'x"))}));
    screen->BtnSelect_Click();
    DoubleClickFirstLine();
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 0);
    answers.Expect(openQuote);
    screen->TxtFilter.SetFocus();
    Driver().Press(Qt::Key_End).Press(Qt::Key_Backspace).Press(Qt::Key_Backspace);
    EXPECT_EQ(screen->TxtFilter.Text(), "noor");
    EXPECT_EQ(Ids(), Lines{"1040"}) << "the text is correct again";
}

TEST_F(SchArrivalsTest, SecondStatementInTheNameIsNotRun) {
    SKIP_ON_SQL_SERVER("it runs them both; the rights of its users stand before the second");
    Open();
    screen->TxtFilter.SetFocus();
    const auto lines = [] {
        return Con->Execute("Select Count(*) From ArrivalsBody").Fields(0).Long();
    };
    const std::int32_t before = lines();
    BoxAnswers answers;
    answers.Expect(DatabaseFailure("Only one statement can be run at a time."));
    Driver().Commit("'; Delete From ArrivalsBody; --");
    EXPECT_EQ(lines(), before);
}

TEST_F(SchArrivalsTest, EachPartOfATypedDateRefreshesTheList) {
    Open();
    EnterDate(screen->DtpFromDate, "15112026");
    const Lines sent = Sent();
    ASSERT_GE(sent.size(), 1U);
    EXPECT_EQ(sent.back(), Statement("", "2026-11-15"));
    EXPECT_EQ(Ids(), (Lines{"1042", "1041", "1040", "1039", "1038", "1037"}));
    EnterDate(screen->DtpToDate, "17112026");
    EXPECT_EQ(Sent().back(), Statement("", "2026-11-15", "2026-11-17"));
    EXPECT_EQ(Ids(), (Lines{"1039", "1038", "1037"}));
}

TEST_F(SchArrivalsTest, ReversedRangeGivesAnEmptyListWithoutAMessage) {
    Open();
    EnterDate(screen->DtpFromDate, "18112026");
    EnterDate(screen->DtpToDate, "17112026");
    EXPECT_EQ(Sent().back(), Statement("", "2026-11-18", "2026-11-17"));
    EXPECT_EQ(screen->GrdSch.Rows(), 0);
}

TEST_F(SchArrivalsTest, EachDayInTheCalendarRefreshesTheList) {
    Open();
    screen->DtpFromDate.SetFocus();
    Sent();
    Driver().Press(Qt::Key_F4).Press(Qt::Key_Right);
    EXPECT_EQ(Sent(), Lines{Statement("", "2025-11-21")});
}

TEST_F(SchArrivalsTest, ListIsASnapshotUntilAFilterChanges) {
    Open();
    AddArrival("1043", "2026-11-20");
    EXPECT_EQ(Ids().front(), "1042");
    screen->TxtFilter.SetText("");
    EXPECT_EQ(Ids().front(), "1043");
}

TEST_F(SchArrivalsTest, UnreadableTablesLeaveAnEmptyList) {
    database.Rename("Commodities", "Goods");
    BoxAnswers answers;
    answers.Expect(DatabaseFailure(EngineWords("no such table: Commodities")));
    Open();
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_EQ(screen->GrdSch.Rows(), 0);
    Driver().Press(Qt::Key_Escape);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 0);
}

} // namespace
} // namespace Quillane::Testing
