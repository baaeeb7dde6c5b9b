// The connection to the server is lost at each step of a station's work.

#include "faults/FaultsFixture.h"
#include "search/SchArrivals.h"
#include "search/SchParty.h"
#include "support/ProcessEnd.h"
#include "support/ScreenDriver.h"

#include <algorithm>
#include <functional>

namespace Quillane::Testing {
namespace {

class ConnectionLost : public FaultsTest {
protected:
    /// The texts of the boxes of an action, without questions.
    std::vector<std::string> FailureTextsOf(const std::function<void()>& act) {
        station->TakeBoxes();
        act();
        std::vector<std::string> texts;
        for (const Box& box : station->TakeBoxes())
            if (box.buttons == BoxButtons::Ok)
                texts.push_back(TextOfDatabaseBox(box));
        return texts;
    }

    /// The same, if all of them report the lost connection with the driver's text.
    std::vector<std::string> LossesReportedBy(const std::function<void()>& act) {
        const std::vector<std::string> texts = FailureTextsOf(act);
        for (const std::string& words : texts) {
            EXPECT_TRUE(words.starts_with("[")) << words;
            EXPECT_TRUE(Holds(words, LostText)) << words;
        }
        return texts;
    }

    /// The statements of one successful save.
    std::vector<std::string> StatementsOfSave() {
        station->FillIn("a good one");
        station->TakeStatements();
        Screen().BtnSave_Click();
        EXPECT_EQ(Stored("a good one"), 1);
        Run("Delete From ArrivalsBody Where ArrivalId = 1043");
        Run("Delete From Arrivals Where ArrivalID = 1043");
        return station->TakeStatements();
    }

    /// Saves. The connection breaks at the statement with this number, counted from 0.
    void BreakSaveAt(std::size_t number, Moment moment) {
        station->OnStatement = [this, number, moment, seen = 0U](std::string_view) mutable {
            if (seen++ == number)
                relay->Break(moment);
        };
        Screen().BtnSave_Click();
    }

    /// One save for each of its statements.
    void BreakAtEachStatement(Moment moment) {
        const auto statements = StatementsOfSave();
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
            const auto texts = FailureTextsOf([&] { BreakSaveAt(number, moment); });
            ASSERT_FALSE(texts.empty());
            ExpectLoss(texts);
            EXPECT_EQ(Holds(texts[0], UnknownOutcomeText), number == commit) << texts[0];
            EXPECT_EQ(Holds(texts[0], "No transaction is open"), number == begin) << texts[0];
            // After the commit the last statement reads the next id for an empty screen.
            if (number + 1 < statements.size()) {
                EXPECT_EQ(station->Entries(), entries);
            }
            const bool isStored =
                number > commit || (number == commit && moment == Moment::AtNextAnswer);
            EXPECT_EQ(Stored(driver), isStored ? 1 : 0);
            Restart();
        }
        ExpectNextSaveWorks();
    }

    /// The dependent-record test reports its failure, and the save then finds no transaction.
    static void ExpectLoss(const std::vector<std::string>& texts) {
        EXPECT_TRUE(texts[0].starts_with("[")) << texts[0];
        EXPECT_TRUE(Holds(texts[0], LostText)) << texts[0];
        for (std::size_t box = 1; box < texts.size(); ++box)
            EXPECT_TRUE(Holds(texts[box], RolledBackText)) << texts[box];
    }
};

TEST_F(ConnectionLost, EveryActionReportsItAndKeepsTheEntries) {
    station->FillIn("Ghulam Rasool");
    const auto entries = station->Entries();
    const auto tables = Tables();
    relay->Break(Moment::Now);
    ScreenDriver driver(Screen());
    struct Action {
        const char* name;
        std::function<void()> act;
    };
    const Action actions[] = {
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
    for (const Action& action : actions) {
        SCOPED_TRACE(action.name);
        EXPECT_FALSE(LossesReportedBy(action.act).empty());
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_TRUE(Screen().BtnSave.Enabled());
    }
    EXPECT_EQ(Tables(), tables);
    Restart();
    ExpectNextSaveWorks();
}

TEST_F(ConnectionLost, EveryKeyInAnOpenSearchReportsIt) {
    station->FillIn("Ghulam Rasool");
    const auto entries = station->Entries();
    VisitModal parties([&](Quillane::Screen& search) {
        relay->Break(Moment::Now);
        auto& party = dynamic_cast<SchParty&>(search);
        for (const char* text : {"Cha", "Chau"})
            EXPECT_EQ(LossesReportedBy([&] { party.TxtFilter.SetText(text); }).size(), 1U);
        EXPECT_EQ(party.Grid.Rows(), 0);
        party.Unload();
    });
    Screen().CboSeller.SetFocus();
    ScreenDriver(Screen()).Press(Qt::Key_F1);
    EXPECT_EQ(station->Entries(), entries);
    Restart();
    VisitModal arrivals([&](Quillane::Screen& search) {
        relay->Break(Moment::Now);
        auto& arrival = dynamic_cast<SchArrivals&>(search);
        EXPECT_EQ(LossesReportedBy([&] { arrival.RefreshArrivals(); }).size(), 1U);
        EXPECT_EQ(arrival.GrdSch.Rows(), 0);
        arrival.Unload();
    });
    Screen().BtnOpen_Click();
}

TEST_F(ConnectionLost, ALoadingScreenReportsIt) {
    relay->Break(Moment::Now);
    EXPECT_FALSE(LossesReportedBy([&] { station->ShowScreen(); }).empty());
    EXPECT_EQ(Screen().TxtArrivalId.Text(), "");
}

TEST_F(ConnectionLost, BeforeTheAnswerToTheCommitOfARemovalReportsAnUnknownOutcome) {
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto entries = station->Entries();
    station->At("CommitTrans", [&] { relay->Break(Moment::AtNextAnswer); });
    const auto texts = LossesReportedBy([&] { Screen().BtnRemove_Click(); });
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(texts[0].ends_with(UnknownOutcomeText)) << texts[0];
    EXPECT_EQ(station->Entries(), entries);
    EXPECT_EQ(Ask("Select Count(*) From Arrivals Where ArrivalID = 1040"), "0");
    EXPECT_EQ(Ask("Select Count(*) From ArrivalsBody Where ArrivalId = 1040"), "0");
}

// Each change of the list clears the seller.
TEST_F(ConnectionLost, ChangeOfTheSellerListReportsItAndClearsOnlyTheSeller) {
    station->FillIn("Ghulam Rasool");
    auto entries = station->Entries();
    entries[0].clear();
    relay->Break(Moment::Now);
    EXPECT_EQ(LossesReportedBy([&] { Screen().CboSellerType.SetBookmark(1); }).size(), 1U);
    EXPECT_EQ(station->Entries(), entries);
}

// A removal that cannot begin its transaction is not trapped. The runtime's box gives the reason.
TEST_F(ConnectionLost, RemovalThatCannotBeginEndsTheProcess) {
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
    EXPECT_TRUE(Holds(boxes[0].text, LostText + "\nNo transaction is open")) << boxes[0].text;
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
    EXPECT_EQ(Tables(), tables);
}

TEST_F(ConnectionLost, DuringARemovalLeavesTheArrivalUnchanged) {
    std::int16_t id = 1040;
    Screen().LoadArrival(id);
    const auto tables = Tables();
    const auto entries = station->Entries();
    for (const char* statement : {"Update Arrivals Set IsPosted=0 where arrivalid=1040",
                                  "Delete From arrivals where arrivalid=1040"}) {
        station->At(statement, [&] { relay->Break(Moment::AtNextAnswer); });
        EXPECT_EQ(LossesReportedBy([&] { Screen().BtnRemove_Click(); }).size(), 1U);
        EXPECT_EQ(station->Entries(), entries);
        EXPECT_EQ(Tables(), tables);
        Restart();
        Screen().LoadArrival(id);
    }
}

TEST_F(ConnectionLost, BeforeAnyStatementOfASaveLeavesNoPartialSave) {
    BreakAtEachStatement(Moment::AtNextRequest);
}

TEST_F(ConnectionLost, BeforeTheAnswerToAnyStatementOfASaveLeavesNoPartialSave) {
    BreakAtEachStatement(Moment::AtNextAnswer);
}

TEST_F(ConnectionLost, UnresponsiveServerTimesOutWithoutPartialSave) {
    const auto statements = StatementsOfSave();
    for (const char* statement :
         {"Update Arrivals Set IsPosted=0 where arrivalid=1043", "CommitTrans"}) {
        SCOPED_TRACE(statement);
        Restart(3);
        station->FillIn("unanswered");
        const auto entries = station->Entries();
        station->At(statement, [&] { relay->Break(Moment::AtNextRequest, Kind::Silence); });
        const auto texts = LossesReportedBy([&] { Screen().BtnSave_Click(); });
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_TRUE(Holds(texts[0], "imeout")) << texts[0];
        EXPECT_EQ(Holds(texts[0], UnknownOutcomeText),
                  std::string_view(statement) == "CommitTrans");
        EXPECT_EQ(station->Entries(), entries);
        Restart();
        EXPECT_EQ(Stored("unanswered"), 0);
        ExpectNextSaveWorks();
    }
}

} // namespace
} // namespace Quillane::Testing
