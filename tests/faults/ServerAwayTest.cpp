// The server goes away while a station works on it, at every tick of its work.

#include "faults/FaultsFixture.h"
#include "search/SchArrivals.h"
#include "search/SchParty.h"
#include "support/ProcessEnd.h"
#include "support/ScreenDriver.h"

#include <algorithm>
#include <chrono>
#include <functional>

namespace Quillane::Testing {
namespace {

class ServerAway : public FaultsTest {
protected:
    /// What the boxes of an action say, but for questions.
    std::vector<std::string> WordsOfBoxes(const std::function<void()>& act) {
        station->TakeBoxes();
        act();
        std::vector<std::string> told;
        for (const Box& box : station->TakeBoxes())
            if (box.buttons == BoxButtons::Ok)
                told.push_back(WordsOf(box));
        return told;
    }

    /// The same, where all report the lost way in the driver's words.
    std::vector<std::string> LossesToldBy(const std::function<void()>& act) {
        const std::vector<std::string> told = WordsOfBoxes(act);
        for (const std::string& words : told) {
            EXPECT_TRUE(words.starts_with("[")) << words;
            EXPECT_TRUE(Holds(words, LostWords)) << words;
        }
        return told;
    }

    /// The statements of one save, as they are when all goes well.
    std::vector<std::string> StatementsOfASave() {
        station->FillIn("a good one");
        station->TakeStatements();
        Screen().BtnSave_Click();
        EXPECT_EQ(Stored("a good one"), 1);
        Run("Delete From ArrivalsBody Where ArrivalId = 1043");
        Run("Delete From Arrivals Where ArrivalID = 1043");
        return station->TakeStatements();
    }

    /// A save whose statement of that number, from 0, finds the way broken.
    void BreakSaveAt(std::size_t number, Moment moment) {
        station->OnStatement = [this, number, moment, seen = 0U](std::string_view) mutable {
            if (seen++ == number)
                relay->Break(moment);
        };
        Screen().BtnSave_Click();
    }

    /// One save for each of its statements.
    void BreakAtEachStatement(Moment moment) {
        const auto statements = StatementsOfASave();
        const auto numberOf = [&](std::string_view text) {
            return std::find(statements.begin(), statements.end(), text) - statements.begin();
        };
        const auto begin = static_cast<std::size_t>(numberOf("BeginTrans"));
        const auto commit = static_cast<std::size_t>(numberOf("CommitTrans"));
        ASSERT_LT(commit + 1, statements.size());
        for (std::size_t number = 0; number < statements.size(); ++number) {
            SCOPED_TRACE(statements[number]);
            const std::string driver = "save " + std::to_string(number);
            station->FillIn(driver);
            const auto entries = station->Entries();
            const auto told = WordsOfBoxes([&] { BreakSaveAt(number, moment); });
            ASSERT_FALSE(told.empty());
            ExpectLoss(told);
            EXPECT_EQ(Holds(told[0], UnknownWords), number == commit) << told[0];
            EXPECT_EQ(Holds(told[0], "No transaction is open"), number == begin) << told[0];
            // Behind the commit the last statement fetches the next id for an empty screen.
            if (number + 1 < statements.size()) {
                EXPECT_EQ(station->Entries(), entries);
            }
            const bool isStored =
                number > commit || (number == commit && moment == Moment::AtNextAnswer);
            EXPECT_EQ(Stored(driver), isStored ? 1 : 0);
            StartAnew();
        }
        ExpectNextSaveWorks();
    }

    /// The test of dependents reports by itself, and the save then comes to a closed door.
    static void ExpectLoss(const std::vector<std::string>& told) {
        EXPECT_TRUE(told[0].starts_with("[")) << told[0];
        EXPECT_TRUE(Holds(told[0], LostWords)) << told[0];
        for (std::size_t box = 1; box < told.size(); ++box)
            EXPECT_TRUE(Holds(told[box], "ended the open transaction by itself")) << told[box];
    }
};

TEST_F(ServerAway, IsToldByEveryTickOfWorkAndNothingThatWasEnteredIsLost) {
    station->FillIn("Ghulam Rasool");
    const auto entries = station->Entries();
    const auto tables = Tables();
    relay->Break(Moment::Now);
    ScreenDriver driver(Screen());
    struct Tick {
        const char* name;
        std::function<void()> act;
    };
    const Tick ticks[] = {
        {"leaving the id", [&] { Screen().TxtArrivalId_Validate(); }},
        {"opening by the search",
         [&] {
             VisitModal visit([](Quillane::Screen& search) { search.Unload(); });
             Screen().BtnOpen_Click();
         }},
        {"opening by id",
         [&] {
             std::int16_t id = 1040;
             Screen().LoadArrival(id);
             Screen().ArrivalNo = 1043;
         }},
        {"the party search",
         [&] {
             Screen().CboSeller.SetFocus();
             VisitModal visit([](Quillane::Screen& search) { search.Unload(); });
             driver.Press(Qt::Key_F1);
         }},
        {"printing", [&] { Screen().BtnPrint_Click(); }},
        {"saving", [&] { Screen().BtnSave_Click(); }},
        {"saving by its keys", [&] { driver.Press(Qt::CTRL | Qt::Key_S); }},
        {"a new weighment", [&] { Screen().BtnClear_Click(); }},
    };
    for (const Tick& tick : ticks) {
        SCOPED_TRACE(tick.name);
        EXPECT_FALSE(LossesToldBy(tick.act).empty());
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_TRUE(Screen().BtnSave.Enabled());
    }
    EXPECT_EQ(Tables(), tables);
    StartAnew();
    ExpectNextSaveWorks();
}

TEST_F(ServerAway, IsToldByEveryKeyInASearchThatIsOpen) {
    station->FillIn("Ghulam Rasool");
    const auto entries = station->Entries();
    VisitModal parties([&](Quillane::Screen& search) {
        relay->Break(Moment::Now);
        auto& party = dynamic_cast<SchParty&>(search);
        for (const char* text : {"Cha", "Chau"})
            EXPECT_EQ(LossesToldBy([&] { party.TxtFilter.SetText(text); }).size(), 1U);
        EXPECT_EQ(party.Grid.Rows(), 0);
        party.Unload();
    });
    Screen().CboSeller.SetFocus();
    ScreenDriver(Screen()).Press(Qt::Key_F1);
    EXPECT_EQ(station->Entries(), entries);
    StartAnew();
    VisitModal arrivals([&](Quillane::Screen& search) {
        relay->Break(Moment::Now);
        auto& arrival = dynamic_cast<SchArrivals&>(search);
        EXPECT_EQ(LossesToldBy([&] { arrival.RefreshArrivals(); }).size(), 1U);
        EXPECT_EQ(arrival.GrdSch.Rows(), 0);
        arrival.Unload();
    });
    Screen().BtnOpen_Click();
}

TEST_F(ServerAway, IsToldByAScreenThatLoads) {
    relay->Break(Moment::Now);
    EXPECT_FALSE(LossesToldBy([&] { station->ShowScreen(); }).empty());
    EXPECT_EQ(Screen().TxtArrivalId.Text(), "");
}

TEST_F(ServerAway, BeforeTheAnswerToTheEndOfARemovalSaysThatItsOutcomeIsNotKnown) {
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto entries = station->Entries();
    station->At("CommitTrans", [&] { relay->Break(Moment::AtNextAnswer); });
    const auto told = LossesToldBy([&] { Screen().BtnRemove_Click(); });
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].ends_with(UnknownWords)) << told[0];
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 1040"), "0");
    EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId = 1040"), "0");
}

// The seller goes with every change of its list.
TEST_F(ServerAway, IsToldByAnotherListOfSellersWhichTakesTheSellerAlone) {
    station->FillIn("Ghulam Rasool");
    auto entries = station->Entries();
    entries[0].clear();
    relay->Break(Moment::Now);
    EXPECT_EQ(LossesToldBy([&] { Screen().CboSellerType.SetBookmark(1); }).size(), 1U);
    EXPECT_EQ(station->Entries(), entries);
}

// Specified so: a removal that cannot begin is not trapped. The runtime's box tells why.
TEST_F(ServerAway, EndsTheProcessWhereARemovalCannotBegin) {
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto tables = Tables();
    relay->Break(Moment::Now);
    station->TakeBoxes();
    ProcessEnd end;
    ScreenDriver(Screen()).Click(Screen().BtnRemove);
    const auto boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Quillane");
    EXPECT_TRUE(boxes[0].text.starts_with("["));
    EXPECT_TRUE(Holds(boxes[0].text, LostWords + "\nNo transaction is open")) << boxes[0].text;
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
    EXPECT_EQ(Tables(), tables);
}

TEST_F(ServerAway, InTheMidstOfARemovalLeavesTheArrivalWhole) {
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto tables = Tables();
    const auto entries = station->Entries();
    for (const char* statement : {"Update Arrivals Set IsPosted=0 where arrivalid=1040",
                                  "Delete From arrivals where arrivalid=1040"}) {
        station->At(statement, [&] { relay->Break(Moment::AtNextAnswer); });
        EXPECT_EQ(LossesToldBy([&] { Screen().BtnRemove_Click(); }).size(), 1U);
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_EQ(Tables(), tables);
        StartAnew();
        Screen().LoadArrival(id);
    }
}

TEST_F(ServerAway, BeforeAnyStatementOfASaveLeavesItWholeOrNotAtAll) {
    BreakAtEachStatement(Moment::AtNextRequest);
}

TEST_F(ServerAway, BeforeTheAnswerToAnyStatementOfASaveLeavesItWholeOrNotAtAll) {
    BreakAtEachStatement(Moment::AtNextAnswer);
}

TEST_F(ServerAway, InSilenceIsToldInTimeAndLeavesNothingHalfSaved) {
    const auto statements = StatementsOfASave();
    for (const char* statement :
         {"Update Arrivals Set IsPosted=0 where arrivalid=1043", "CommitTrans"}) {
        SCOPED_TRACE(statement);
        StartAnew(3);
        station->FillIn("unanswered");
        const auto entries = station->Entries();
        station->At(statement, [&] { relay->Break(Moment::AtNextRequest, Kind::Silence); });
        const auto begin = std::chrono::steady_clock::now();
        const auto told = LossesToldBy([&] { Screen().BtnSave_Click(); });
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
        ASSERT_EQ(told.size(), 1U);
        EXPECT_TRUE(Holds(told[0], "imeout")) << told[0];
        EXPECT_EQ(Holds(told[0], UnknownWords), std::string_view(statement) == "CommitTrans");
        EXPECT_EQ(station->Entries(), entries);
        StartAnew();
        EXPECT_EQ(Stored("unanswered"), 0);
        ExpectNextSaveWorks();
    }
}

} // namespace
} // namespace Quillane::Testing
