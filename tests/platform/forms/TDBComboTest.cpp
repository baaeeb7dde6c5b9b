#include "platform/forms/TDBCombo.h"

#include "platform/forms/Boxes.h"
#include "platform/forms/ListScreen.h"
#include "platform/runtime/Failure.h"

#include <QHeaderView>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <chrono>

namespace Quillane {
namespace {

void SetUpAsPickList(TDBCombo& list) {
    list.Layout = {.ColumnHeaders = false,
                   .RowDividerStyle = 2,
                   .ScrollBars = 2,
                   .AutoCompletion = true,
                   .AutoDropDown = true,
                   .LimitToList = true,
                   .AllowColMove = false,
                   .AllowRowSizing = false,
                   .EmptyRows = false,
                   .AllowColSelect = false,
                   .ExtendRightColumn = true,
                   .Appearance = 0,
                   .BorderStyle = 1};
    list.Columns[1].Visible = false;
    list.Splits[0].Columns[1] = {.Visible = false, .AllowSizing = false};
}

class TwoLists : public ListScreen {
public:
    TextBox TxtBefore{*this, "TxtBefore"};
    TDBCombo CboSeller{*this, "CboSeller"};
    TDBCombo CboCommodity{*this, "CboCommodity"};
    TextBox TxtAfter{*this, "TxtAfter"};

    TwoLists() {
        int place = 0;
        for (VisualControl* control : std::initializer_list<VisualControl*>{
                 &TxtBefore, &CboSeller, &CboCommodity, &TxtAfter}) {
            control->SetTabIndex(place);
            control->Widget().setGeometry(10, 10 + 40 * place++, 300, 28);
        }
        SetUpAsPickList(CboSeller);
        SetUpAsPickList(CboCommodity);
    }
};

class TDBComboTest : public testing::Test {
protected:
    void SetUp() override {
        Fill({"Ali Traders", "Bashir", "Bashir Sons", "Bashir", "Chaudhry"});
        screen.CboCommodity.SetArray(NamesWithIds({"Wheat", "Maize", "Gram"}));
        screen.CboCommodity.ReBind();
        list.RowChange = [this] { changes.push_back(list.Bookmark().value()); };
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        list.SetFocus();
        screen.log.clear();
        screen.keys.clear();
    }
    void TearDown() override { screen.Unload(); }

    void Press(QKeyCombination key) { screen.Press(key); }
    void Press(Qt::Key key) { screen.Press(key); }
    void Type(std::string_view text) { screen.Type(text); }
    void Commit(std::string_view text) { Testing::ScreenDriver(screen).Commit(text); }
    void Click(QWidget& widget, QPoint place) { screen.Click(widget, place); }
    void ClickRow(int row) { screen.ClickRow(list, row); }
    void Fill(std::initializer_list<const char*> names) {
        list.SetArray(NamesWithIds(names));
        list.ReBind();
    }
    QLineEdit& Line() { return static_cast<QLineEdit&>(list.FocusWidget()); }
    QPoint Arrow() { return {list.Widget().width() - 8, list.Widget().height() / 2}; }
    void RefuseAndStay() {
        list.NotInList = [this] {
            ++refusals;
            list.SetFocus();
        };
    }

    TwoLists screen;
    TDBCombo& list = screen.CboSeller;
    std::vector<int> changes;
    int refusals = 0;
};

TEST_F(TDBComboTest, TypingCompletesTheNameWithTheRestSelected) {
    Type("ch");
    EXPECT_EQ(list.Text(), "Chaudhry");
    EXPECT_EQ(Line().selectedText(), "audhry");
    EXPECT_EQ(list.Bookmark(), 4);
    EXPECT_EQ(list.ColumnText(1), "104");
    EXPECT_EQ(changes, std::vector<int>{4});
}

TEST_F(TDBComboTest, TypingOnInTheSameNameIsNoFurtherRowChange) {
    Type("chau");
    EXPECT_EQ(list.Text(), "Chaudhry");
    EXPECT_EQ(changes, std::vector<int>{4});
}

TEST_F(TDBComboTest, TheNameTypedInFullWinsOverALongerOneBeforeIt) {
    Fill({"Bashir Sons", "Bashir"});
    Type("bashir");
    EXPECT_EQ(list.Bookmark(), 1);
    Type(" s");
    EXPECT_EQ(list.Text(), "Bashir Sons");
    EXPECT_EQ(list.Bookmark(), 0);
}

TEST_F(TDBComboTest, ANameThatSeveralRowsHaveMeansTheFirstWhenTyped) {
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

TEST_F(TDBComboTest, TypingDropsTheListDownOnTheNameFound) {
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

TEST_F(TDBComboTest, WithoutLimitToListAnyTextStands) {
    list.Layout.LimitToList = false;
    RefuseAndStay();
    Type("Bas and others");
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Text(), "Bas and others");
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, WithoutLimitToListTheBeginningOfANameStandsToo) {
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

TEST_F(TDBComboTest, BlankingMakesNoRowCurrentAndIsNoRowChange) {
    list.SetBookmark(2);
    list.SetText("");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    list.SetBookmark(2);
    Line().selectAll();
    Press(Qt::Key_Delete);
    EXPECT_EQ(list.Bookmark(), std::nullopt);
    EXPECT_EQ(changes, (std::vector<int>{2, 2}));
}

TEST_F(TDBComboTest, TheMarkerOnTheSameRowAgainIsNoRowChange) {
    list.SetBookmark(0);
    list.SetBookmark(0);
    list.SetText("Ali Traders");
    EXPECT_EQ(changes, std::vector<int>{0});
}

TEST_F(TDBComboTest, SettingTheMarkerShowsTheNameAndNoneBlanksNothing) {
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

TEST_F(TDBComboTest, ReadingTheCurrentRowWhereThereIsNoneFails) {
    list.SetText("Nobody");
    try {
        list.ColumnText(1);
        FAIL() << "read a row that is not there";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::InvalidUseOfNull);
    }
}

TEST_F(TDBComboTest, FindingARowGoesByTheExactTextFromTheFirstRowOn) {
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

TEST_F(TDBComboTest, ReBindingShowsTheArrayAsItNowStands) {
    list.Array()->Set(4, 0, "Dawood");
    list.ReBind();
    Type("d");
    EXPECT_EQ(list.Text(), "Dawood");
}

TEST_F(TDBComboTest, AListWithoutRowsDropsNothingDownAndHoldsNoName) {
    Fill({});
    Press(Qt::Key_F4);
    EXPECT_FALSE(list.IsDroppedDown());
    Press(Qt::Key_Down);
    Type("a");
    EXPECT_EQ(list.Text(), "a");
    EXPECT_EQ(list.Bookmark(), std::nullopt);
}

// What is refused, and when.

TEST_F(TDBComboTest, ATextThatNoRowHasIsRefusedOnEveryRoadOutOfTheList) {
    RefuseAndStay();
    Type("zz");
    const std::vector<std::function<void()>> roads = {
        [this] { Press(Qt::Key_Tab); },         [this] { Press(Qt::SHIFT | Qt::Key_Tab); },
        [this] { Press(Qt::Key_Return); },      [this] { screen.Click(screen.TxtAfter); },
        [this] { screen.TxtAfter.SetFocus(); },
    };
    int expected = 0;
    for (const auto& leave : roads) {
        leave();
        EXPECT_EQ(refusals, ++expected);
        EXPECT_EQ(screen.ActiveControlName(), "CboSeller");
        EXPECT_EQ(list.Text(), "zz");
    }
    EXPECT_FALSE(list.IsDroppedDown());
}

TEST_F(TDBComboTest, ARefusalThatLeavesTheFocusAloneLetsItGoAndTheTextStays) {
    list.NotInList = [this] { ++refusals; };
    Type("zz");
    Press(Qt::Key_Tab);
    EXPECT_EQ(refusals, 1);
    EXPECT_EQ(list.Text(), "zz");
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, ARefusalThatSendsTheFocusElsewhereRunsOnce) {
    list.NotInList = [this] {
        ++refusals;
        screen.TxtAfter.SetFocus();
    };
    Type("zz");
    Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(refusals, 1);
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
}

TEST_F(TDBComboTest, WithNobodyToRefuseItTheTextIsBlanked) {
    Type("zz");
    Press(Qt::Key_Tab);
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, ATextFromCodeIsNotRefused) {
    RefuseAndStay();
    Type("zz");
    list.SetText("Somebody-Lahore");
    Press(Qt::Key_Tab);
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(list.Text(), "Somebody-Lahore");
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, AnEmptyTextIsNotRefused) {
    RefuseAndStay();
    Type("z");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Tab);
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, AnotherWindowBecomingActiveRefusesNothingAndKeepsTheText) {
    RefuseAndStay();
    Type("zz");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(Testing::WaitFor([&] { return other.isActiveWindow(); }));
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(list.Text(), "zz");
    EXPECT_FALSE(list.IsDroppedDown());
}

TEST_F(TDBComboTest, ABoxClosesTheListAndRefusesNothing) {
    RefuseAndStay();
    Type("zz");
    {
        const Testing::VisitBox visit([this](QDialog& box) {
            EXPECT_FALSE(list.IsDroppedDown());
            Testing::PressIn(box, Qt::Key_Return);
        });
        MsgBox({.text = "Meanwhile", .title = "Alert"});
    }
    ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
    EXPECT_EQ(refusals, 0);
    EXPECT_EQ(list.Text(), "zz");
    Type("z");
    EXPECT_EQ(list.Text(), "zzz");
}

// Keys.

TEST_F(TDBComboTest, TheScreenSeesEachKeyOnceAlsoWhileTheListIsOpen) {
    Type("c");
    Press(Qt::Key_Down);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F4);
    EXPECT_EQ(screen.keys, (std::vector<int>{'C', Key::Down, Key::Escape, Key::F4}));
}

TEST_F(TDBComboTest, F4AndAltDownOpenAndCloseTheList) {
    Press(Qt::Key_F4);
    EXPECT_TRUE(list.IsDroppedDown());
    Press(Qt::Key_F4);
    EXPECT_FALSE(list.IsDroppedDown());
    Press(Qt::ALT | Qt::Key_Down);
    EXPECT_TRUE(list.IsDroppedDown());
    Press(Qt::ALT | Qt::Key_Down);
    EXPECT_FALSE(list.IsDroppedDown());
}

TEST_F(TDBComboTest, TheListOpensOnTheCurrentRow) {
    list.SetBookmark(3);
    Press(Qt::Key_F4);
    EXPECT_EQ(HighlightedRow(list), 3);
}

TEST_F(TDBComboTest, HighlightingChangesNeitherTheTextNorTheCurrentRow) {
    list.SetBookmark(0);
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(HighlightedRow(list), 2);
    EXPECT_EQ(list.Text(), "Ali Traders");
    EXPECT_EQ(list.Bookmark(), 0);
}

TEST_F(TDBComboTest, EscapeClosesTheListAndTakesNothing) {
    list.SetBookmark(0);
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(list.IsDroppedDown());
    EXPECT_EQ(list.Bookmark(), 0);
}

TEST_F(TDBComboTest, EnterAndTabTakeWhatIsHighlightedAndMoveOn) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
        list.SetFocus();
        list.SetText("");
        Press(Qt::Key_F4);
        Press(Qt::Key_Down);
        Press(Qt::Key_Down);
        Press(key);
        EXPECT_EQ(list.Text(), "Bashir");
        EXPECT_EQ(list.Bookmark(), 1);
        EXPECT_FALSE(list.IsDroppedDown());
        EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
    }
}

TEST_F(TDBComboTest, ArrowsChooseInAClosedList) {
    Press(Qt::Key_Down);
    EXPECT_EQ(list.Bookmark(), 0);
    Press(Qt::Key_Down);
    EXPECT_EQ(list.Text(), "Bashir");
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    EXPECT_EQ(list.Bookmark(), 0);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(list.Bookmark(), 4);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(list.Bookmark(), 0);
    EXPECT_EQ(changes, (std::vector<int>{0, 1, 0, 4, 0}));
}

TEST_F(TDBComboTest, LettersAndEntersTypedAheadFillOneListAfterTheOther) {
    Type("c");
    Press(Qt::Key_Return);
    Type("m");
    Press(Qt::Key_Return);
    EXPECT_EQ(list.Text(), "Chaudhry");
    EXPECT_EQ(screen.CboCommodity.Text(), "Maize");
    EXPECT_EQ(screen.CboCommodity.ColumnText(1), "101");
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
    EXPECT_EQ(screen.TxtAfter.Text(), "");
}

TEST_F(TDBComboTest, TypingReplacesTheTextOfAListJustEntered) {
    list.SetText("Chaudhry");
    screen.TxtBefore.SetFocus();
    Press(Qt::Key_Tab);
    Type("a");
    EXPECT_EQ(list.Text(), "Ali Traders");
}

TEST_F(TDBComboTest, AShortcutOfTheScreenFindsWhatWasHighlightedTaken) {
    std::string saved;
    screen.OnSave = [&] { saved = list.ColumnText(1); };
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(saved, "100");
}

// The mouse.

TEST_F(TDBComboTest, TheArrowOpensAndClosesTheListAndBringsTheFocus) {
    screen.TxtBefore.SetFocus();
    Click(list.Widget(), Arrow());
    EXPECT_EQ(screen.ActiveControlName(), "CboSeller");
    EXPECT_TRUE(list.IsDroppedDown());
    Click(list.Widget(), Arrow());
    EXPECT_FALSE(list.IsDroppedDown());
}

TEST_F(TDBComboTest, TheArrowStaysShutWhileAnotherListKeepsTheFocus) {
    RefuseAndStay();
    Type("zz");
    Click(screen.CboCommodity.Widget(), Arrow());
    EXPECT_EQ(screen.ActiveControlName(), "CboSeller");
    EXPECT_FALSE(screen.CboCommodity.IsDroppedDown());
}

TEST_F(TDBComboTest, AClickOnARowTakesItAndTheFocusStays) {
    Press(Qt::Key_F4);
    ClickRow(2);
    EXPECT_EQ(list.Text(), "Bashir Sons");
    EXPECT_EQ(changes, std::vector<int>{2});
    EXPECT_FALSE(list.IsDroppedDown());
    EXPECT_EQ(screen.ActiveControlName(), "CboSeller");
    EXPECT_TRUE(screen.log.empty());
    EXPECT_EQ(screen.focusWidget(), &Line());
}

TEST_F(TDBComboTest, APressBesideTheListClosesItAndTakesNothing) {
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Click(screen, QPoint(600, 400));
    EXPECT_FALSE(list.IsDroppedDown());
    EXPECT_EQ(list.Bookmark(), std::nullopt);
}

TEST_F(TDBComboTest, AClickInTheLineLeavesTheListOpen) {
    Press(Qt::Key_F4);
    Click(Line(), Line().rect().center());
    EXPECT_TRUE(list.IsDroppedDown());
}

TEST_F(TDBComboTest, TheListClosesWithWhateverItHangsOn) {
    const std::vector<std::function<void()>> ends = {
        [this] { screen.move(screen.pos() + QPoint(30, 30)); },
        [this] { screen.resize(700, 500); },
        [this] { list.SetEnabled(false); },
        [this] { list.SetVisible(false); },
        [this] { list.SetText("Bashir"); },
        [this] { list.ClearFields(); },
        [this] { screen.Unload(); },
    };
    for (const auto& end : ends) {
        list.SetEnabled(true);
        list.SetVisible(true);
        list.ReBind();
        list.SetFocus();
        Press(Qt::Key_F4);
        ASSERT_TRUE(list.IsDroppedDown());
        end();
        QCoreApplication::processEvents();
        EXPECT_FALSE(list.IsDroppedDown());
    }
}

TEST_F(TDBComboTest, TheDropDownNeverTakesTheFocus) {
    Press(Qt::Key_F4);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeWindow(), &screen);
    EXPECT_EQ(QApplication::focusWidget(), &Line());
}

// The set-up.

TEST_F(TDBComboTest, TheSetUpOfAPickListShowsOneColumnOfNamesWithoutAHeader) {
    Press(Qt::Key_F4);
    const QTableView& rows = *DroppedRows(list);
    EXPECT_TRUE(rows.horizontalHeader()->isHidden());
    EXPECT_TRUE(rows.isColumnHidden(1));
    EXPECT_FALSE(rows.isColumnHidden(0));
    EXPECT_TRUE(rows.verticalHeader()->isHidden());
    EXPECT_EQ(rows.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(rows.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    EXPECT_GE(rows.columnWidth(0), rows.viewport()->width());
    EXPECT_EQ(rows.verticalScrollBar()->maximum(), 0);
}

TEST_F(TDBComboTest, WithoutThatSetUpHeaderAndIdsAreSeen) {
    list.Layout = {};
    list.Columns[1] = {};
    list.Splits[0].Columns[1] = {};
    Press(Qt::Key_F4);
    const QTableView& rows = *DroppedRows(list);
    EXPECT_FALSE(rows.horizontalHeader()->isHidden());
    EXPECT_FALSE(rows.isColumnHidden(1));
    EXPECT_FALSE(rows.verticalHeader()->isHidden());
    EXPECT_TRUE(rows.horizontalHeader()->sectionsMovable());
    EXPECT_TRUE(rows.horizontalHeader()->sectionsClickable());
    EXPECT_EQ(rows.horizontalHeader()->sectionResizeMode(1), QHeaderView::Interactive);
    EXPECT_EQ(rows.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

TEST_F(TDBComboTest, EachLevelHidesTheIdsByItself) {
    list.Columns[1].Visible = true;
    Press(Qt::Key_F4);
    EXPECT_TRUE(DroppedRows(list)->isColumnHidden(1));
    Press(Qt::Key_F4);
    list.Splits[0].Columns[1].Visible = true;
    list.Columns[1].Visible = false;
    Press(Qt::Key_F4);
    EXPECT_TRUE(DroppedRows(list)->isColumnHidden(1));
}

TEST_F(TDBComboTest, EmptyRowsGiveAShortListTheHeightOfALongOne) {
    Press(Qt::Key_F4);
    const int fitted = DroppedRows(list)->height();
    Press(Qt::Key_F4);
    list.Layout.EmptyRows = true;
    Press(Qt::Key_F4);
    EXPECT_GT(DroppedRows(list)->height(), fitted);
}

TEST_F(TDBComboTest, TheLineAndItsRowsCarryTheAccessibleName) {
    list.SetAccessibleName("Seller");
    Press(Qt::Key_F4);
    EXPECT_EQ(Line().accessibleName(), "Seller");
    EXPECT_EQ(DroppedRows(list)->accessibleName(), "Seller");
}

TEST_F(TDBComboTest, FiveThousandPartiesOpenAndCompleteAtOnce) {
    auto rows = std::make_shared<RowArray>();
    rows->ReDim(4999, 1);
    for (int row = 0; row < 5000; ++row)
        rows->Set(row, 0, "Party " + std::to_string(100000 + row) + "-Faisalabad");
    list.SetArray(rows);
    list.ReBind();
    const auto start = std::chrono::steady_clock::now();
    Type("Party 104999");
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(list.Bookmark(), 4999);
    EXPECT_TRUE(list.IsDroppedDown());
    EXPECT_LT(taken, std::chrono::milliseconds(12 * 50));
}

} // namespace
} // namespace Quillane
