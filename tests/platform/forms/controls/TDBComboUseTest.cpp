#include "platform/forms/controls/TDBCombo.h"

#include "platform/forms/controls/TDBComboTrial.h"
#include "platform/forms/core/Boxes.h"

#include <QHeaderView>
#include <QScrollBar>

namespace Quillane {
namespace {

// When a text is refused.

TEST_F(TDBComboTest, AnUnlistedTextIsRefusedHoweverTheListIsLeft) {
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

TEST_F(TDBComboTest, ARefusalThatDoesNotSetTheFocusLetsItMoveAndKeepsTheText) {
    list.NotInList = [this] { ++refusals; };
    Type("zz");
    Press(Qt::Key_Tab);
    EXPECT_EQ(refusals, 1);
    EXPECT_EQ(list.Text(), "zz");
    EXPECT_EQ(screen.ActiveControlName(), "CboCommodity");
}

TEST_F(TDBComboTest, ARefusalThatMovesTheFocusElsewhereRunsOnce) {
    list.NotInList = [this] {
        ++refusals;
        screen.TxtAfter.SetFocus();
    };
    Type("zz");
    Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(refusals, 1);
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
}

TEST_F(TDBComboTest, WithoutAHandlerAnUnlistedTextIsBlanked) {
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

TEST_F(TDBComboTest, TheScreenGetsEachKeyOnceAlsoWhileTheListIsOpen) {
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

TEST_F(TDBComboTest, EscapeClosesTheListWithoutASelection) {
    list.SetBookmark(0);
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(list.IsDroppedDown());
    EXPECT_EQ(list.Bookmark(), 0);
}

TEST_F(TDBComboTest, EnterAndTabTakeTheHighlightedRowAndMoveOn) {
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

TEST_F(TDBComboTest, ArrowsSelectInAClosedList) {
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

TEST_F(TDBComboTest, TypingReplacesTheTextOfAListThatHasJustGotTheFocus) {
    list.SetText("Chaudhry");
    screen.TxtBefore.SetFocus();
    Press(Qt::Key_Tab);
    Type("a");
    EXPECT_EQ(list.Text(), "Ali Traders");
}

TEST_F(TDBComboTest, ShortcutTakesTheHighlightedRowFirst) {
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

TEST_F(TDBComboTest, ArrowDoesNotOpenWhileAnotherListKeepsTheFocus) {
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

TEST_F(TDBComboTest, PressOutsideClosesTheListWithoutASelection) {
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

TEST_F(TDBComboTest, ListClosesWithItsWindow) {
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

// The settings.

TEST_F(TDBComboTest, TheSettingsOfAPickListShowOneColumnOfNamesWithoutAHeader) {
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

TEST_F(TDBComboTest, HeaderAndIdsAreShownByDefault) {
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

TEST_F(TDBComboTest, EachLevelCanHideTheIds) {
    list.Columns[1].Visible = true;
    Press(Qt::Key_F4);
    EXPECT_TRUE(DroppedRows(list)->isColumnHidden(1));
    Press(Qt::Key_F4);
    list.Splits[0].Columns[1].Visible = true;
    list.Columns[1].Visible = false;
    Press(Qt::Key_F4);
    EXPECT_TRUE(DroppedRows(list)->isColumnHidden(1));
}

TEST_F(TDBComboTest, EmptyRowsMakeAShortListAsHighAsALongOne) {
    Press(Qt::Key_F4);
    const int fitted = DroppedRows(list)->height();
    Press(Qt::Key_F4);
    list.Layout.EmptyRows = true;
    Press(Qt::Key_F4);
    EXPECT_GT(DroppedRows(list)->height(), fitted);
}

TEST_F(TDBComboTest, TheLineAndItsRowsHaveTheAccessibleName) {
    list.SetAccessibleName("Seller");
    Press(Qt::Key_F4);
    EXPECT_EQ(Line().accessibleName(), "Seller");
    EXPECT_EQ(DroppedRows(list)->accessibleName(), "Seller");
}

TEST_F(TDBComboTest, FiveThousandPartiesOpenAndComplete) {
    auto rows = std::make_shared<RowArray>();
    rows->ReDim(4999, 1);
    for (int row = 0; row < 5000; ++row)
        rows->Set(row, 0, "Party " + std::to_string(100000 + row) + "-Faisalabad");
    list.SetArray(rows);
    list.ReBind();
    Type("Party 104999");
    EXPECT_EQ(list.Bookmark(), 4999);
    EXPECT_TRUE(list.IsDroppedDown());
}

} // namespace
} // namespace Quillane
