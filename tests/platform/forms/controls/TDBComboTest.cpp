#include "platform/forms/controls/TDBCombo.h"

#include "platform/forms/controls/TDBComboTrial.h"
#include "platform/runtime/Failure.h"

namespace Quillane {
namespace {

TEST_F(TDBComboTest, TypingCompletesTheNameWithTheRestSelected) {
    Type("ch");
    EXPECT_EQ(list.Text(), "Chaudhry");
    EXPECT_EQ(Line().selectedText(), "audhry");
    EXPECT_EQ(list.Bookmark(), 4);
    EXPECT_EQ(list.ColumnText(1), "104");
    EXPECT_EQ(changes, std::vector<int>{4});
}

TEST_F(TDBComboTest, TypingMoreOfTheSameNameIsNotARowChange) {
    Type("chau");
    EXPECT_EQ(list.Text(), "Chaudhry");
    EXPECT_EQ(changes, std::vector<int>{4});
}

TEST_F(TDBComboTest, AnExactNameHasPriorityOverALongerOneBeforeIt) {
    Fill({"Bashir Sons", "Bashir"});
    Type("bashir");
    EXPECT_EQ(list.Bookmark(), 1);
    Type(" s");
    EXPECT_EQ(list.Text(), "Bashir Sons");
    EXPECT_EQ(list.Bookmark(), 0);
}

TEST_F(TDBComboTest, ATypedNameOfSeveralRowsMeansTheFirst) {
    Type("bashir");
    EXPECT_EQ(list.Bookmark(), 1);
}

TEST_F(TDBComboTest, NeitherBackspaceNorDeleteCompletesAgain) {
    Type("cha");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(list.Text(), "Cha");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(list.Text(), "Ch");
    Type("a");
    EXPECT_EQ(list.Text(), "Chaudhry");
    Press(Qt::Key_Delete);
    EXPECT_EQ(list.Text(), "Cha");
}

TEST_F(TDBComboTest, TypingInTheMiddleOfATextDoesNotComplete) {
    Type("chu");
    Press(Qt::Key_Left);
    Type("a");
    EXPECT_EQ(list.Text(), "Chau");
}

TEST_F(TDBComboTest, LettersBeyondAsciiAreFoundWithoutRegardToCase) {
    Fill({"Érik", "گندم ملز"});
    Commit("é");
    EXPECT_EQ(list.Bookmark(), 0);
    Line().selectAll();
    Commit("گن");
    EXPECT_EQ(list.Text(), "گندم ملز");
}

TEST_F(TDBComboTest, TypingOpensTheListAtTheFoundName) {
    Type("c");
    EXPECT_TRUE(list.IsDroppedDown());
    EXPECT_EQ(HighlightedRow(list), 4);
}

TEST_F(TDBComboTest, WithoutAutoDropDownTypingLeavesTheListClosed) {
    list.Layout.AutoDropDown = false;
    Type("c");
    EXPECT_FALSE(list.IsDroppedDown());
    EXPECT_EQ(list.Text(), "Chaudhry");
}

TEST_F(TDBComboTest, WithoutAutoCompletionTheTextStaysAsTyped) {
    list.Layout.AutoCompletion = false;
    Type("ch");
    EXPECT_EQ(list.Text(), "ch");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    Type("audhry");
    EXPECT_EQ(list.Bookmark(), 4);
}

TEST_F(TDBComboTest, ANameTypedInAnotherCaseIsShownAsListedOnceItIsLeft) {
    list.Layout.AutoCompletion = false;
    list.Layout.AutoDropDown = false;
    Type("chaudhry");
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Text(), "Chaudhry");
}

TEST_F(TDBComboTest, WithoutLimitToListAnyTextIsKept) {
    list.Layout.LimitToList = false;
    RefuseAndStay();
    Type("Bas and others");
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Text(), "Bas and others");
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, WithoutLimitToListTheBeginningOfANameIsKeptToo) {
    list.Layout.LimitToList = false;
    list.Layout.AutoCompletion = false;
    Type("bas");
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Text(), "bas");
}

TEST_F(TDBComboTest, ATextFromCodeMakesTheFirstRowOfThatNameCurrent) {
    list.SetText("Bashir");
    EXPECT_EQ(list.Bookmark(), 1);
    list.SetText("bashir");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    EXPECT_EQ(list.Text(), "bashir");
    list.SetText("Nobody");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    EXPECT_EQ(changes, std::vector<int>{1});
}

TEST_F(TDBComboTest, ATextFromCodeIsSelectedOnlyIfTheLineHasTheFocus) {
    Line().clearFocus();
    list.SetText("Chaudhry");
    Line().setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(Line().text(), "Chaudhry");
    EXPECT_FALSE(Line().hasSelectedText());
    list.SetText("Bashir");
    QApplication::processEvents();
    EXPECT_EQ(Line().selectedText(), "Bashir");
}

TEST_F(TDBComboTest, BlankingMakesNoRowCurrentAndIsNotARowChange) {
    list.SetBookmark(2);
    list.SetText("");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    list.SetBookmark(2);
    Line().selectAll();
    Press(Qt::Key_Delete);
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    EXPECT_EQ(changes, (std::vector<int>{2, 2}));
}

TEST_F(TDBComboTest, TheMarkerOnTheSameRowAgainIsNotARowChange) {
    list.SetBookmark(0);
    list.SetBookmark(0);
    list.SetText("Ali Traders");
    EXPECT_EQ(changes, std::vector<int>{0});
}

TEST_F(TDBComboTest, SettingTheMarkerShowsTheNameAndNoneKeepsTheText) {
    list.SetBookmark(2);
    EXPECT_EQ(list.Text(), "Bashir Sons");
    list.SetBookmark(std::nullopt);
    EXPECT_EQ(list.Text(), "Bashir Sons");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
}

TEST_F(TDBComboTest, AMarkerBeyondTheRowsFails) {
    EXPECT_THROW(list.SetBookmark(5), Failure);
    EXPECT_THROW(list.SetBookmark(-1), Failure);
}

TEST_F(TDBComboTest, ReadingFailsWithoutACurrentRow) {
    list.SetText("Nobody");
    try {
        list.ColumnText(1);
        FAIL() << "read a row that does not exist";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::InvalidUseOfNull);
    }
}

TEST_F(TDBComboTest, FindReturnsTheFirstRowWithExactlyTheText) {
    EXPECT_EQ(list.FindRow(0, "Bashir"), 1);
    EXPECT_EQ(list.FindRow(0, "bashir"), std::nullopt);
    EXPECT_EQ(list.FindRow(1, "103"), 3);
    EXPECT_EQ(list.FindRow(0, "Bash"), std::nullopt);
}

TEST_F(TDBComboTest, WithSeveralRowsOfANameTheChosenOneIsKept) {
    Press(Qt::Key_F4);
    ClickRow(3);
    EXPECT_EQ(list.Text(), "Bashir");
    EXPECT_EQ(list.Bookmark(), 3);
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Bookmark(), 3);
    EXPECT_EQ(list.ColumnText(1), "103");
}

TEST_F(TDBComboTest, ClearingTheFieldsShowsNoRowsUntilTheNextReBind) {
    list.SetBookmark(0);
    list.ClearFields();
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    EXPECT_EQ(list.FindRow(0, "Bashir"), std::nullopt);
    Press(Qt::Key_F4);
    EXPECT_FALSE(list.IsDroppedDown());
    list.ReBind();
    EXPECT_EQ(list.FindRow(0, "Bashir"), 1);
}

TEST_F(TDBComboTest, ReBindingShowsThePresentArray) {
    list.Array()->Set(4, 0, "Dawood");
    list.ReBind();
    Type("d");
    EXPECT_EQ(list.Text(), "Dawood");
}

TEST_F(TDBComboTest, AListWithoutRowsDoesNotOpenAndHasNoName) {
    Fill({});
    Press(Qt::Key_F4);
    EXPECT_FALSE(list.IsDroppedDown());
    Press(Qt::Key_Down);
    Type("a");
    EXPECT_EQ(list.Text(), "a");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
}

} // namespace
} // namespace Quillane
