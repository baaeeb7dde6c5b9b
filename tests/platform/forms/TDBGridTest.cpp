#include "platform/forms/TDBGrid.h"

#include "platform/forms/Boxes.h"
#include "platform/forms/ListScreen.h"
#include "platform/runtime/Failure.h"

#include <QHeaderView>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

constexpr int ClassColumn = 0;
constexpr int TypeColumn = 1;
constexpr int QuantityColumn = 2;

class BagScreen : public ListScreen {
public:
    TextBox TxtBefore{*this, "TxtBefore"};
    TDBGrid Grid{*this, "Grid"};
    TextBox TxtAfter{*this, "TxtAfter"};
    TDBCombo CboBagClass{*this, "CboBagClass"};
    TDBCombo CboBagType{*this, "CboBagType"};
    RowArray BagRows;

    BagScreen() {
        TxtBefore.SetTabIndex(0);
        Grid.SetTabIndex(1);
        TxtAfter.SetTabIndex(2);
        TxtBefore.Widget().setGeometry(10, 10, 300, 28);
        Grid.Widget().setGeometry(10, 50, 480, 260);
        TxtAfter.Widget().setGeometry(10, 320, 300, 28);
        FillList(CboBagClass, {"Jute", "Plastic", "Plain"});
        FillList(CboBagType, {"50 Kg", "100 Kg"});
        Grid.AddColumn("Class", 200);
        Grid.AddColumn("Type", 160);
        Grid.AddColumn("Qty", 80, TDBGrid::CellKind::WholeNumber);
        Grid.SetDropDown(ClassColumn, CboBagClass);
        Grid.SetDropDown(TypeColumn, CboBagType);
        BagRows.ReDim(-1, 2);
        Grid.SetArray(BagRows);
    }

private:
    static void FillList(TDBCombo& list, std::initializer_list<const char*> names) {
        list.SetArray(NamesWithIds(names));
        list.ReBind();
    }
};

class TDBGridTest : public testing::Test {
protected:
    void SetUp() override {
        screen.Show();
        ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
        grid.AfterColUpdate = [this] { events.push_back("AfterColUpdate"); };
        grid.Change = [this] { events.push_back("Change"); };
        grid.SetFocus();
        screen.log.clear();
        screen.keys.clear();
    }
    void TearDown() override { screen.Unload(); }

    void Press(QKeyCombination key) { screen.Press(key); }
    void Press(Qt::Key key) { screen.Press(key); }
    void Type(std::string_view text) { screen.Type(text); }

    void Fill(std::vector<std::vector<std::string>> rows) {
        screen.BagRows.ReDim(static_cast<int>(rows.size()) - 1, 2);
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (std::size_t column = 0; column < 3; ++column)
                screen.BagRows.Set(static_cast<int>(row), static_cast<int>(column),
                                   rows[row][column]);
        grid.ReBind();
    }
    /// Two lines as they come back from the database.
    void FillTwo() { Fill({{"Jute", "50 Kg", "30"}, {"Plastic", "100 Kg", "10"}}); }

    QTableView& View() { return static_cast<QTableView&>(grid.Widget()); }
    QPoint CellCentre(int row, int column) {
        return View().visualRect(View().model()->index(row, column)).center();
    }
    void ClickCell(int row, int column) {
        screen.Click(*View().viewport(), CellCentre(row, column));
    }
    void GoTo(int row, int column) { View().setCurrentIndex(View().model()->index(row, column)); }
    QLineEdit* Editor() {
        auto* editor = View().viewport()->findChild<QLineEdit*>();
        return editor->isVisible() ? editor : nullptr;
    }
    std::string Cell(int row, int column) { return screen.BagRows.Get(row, column); }
    int Column() { return View().currentIndex().column(); }
    std::string Shown(int row, int column) {
        return FromQt(View().model()->index(row, column).data().toString());
    }

    BagScreen screen;
    TDBGrid& grid = screen.Grid;
    std::vector<std::string> events;
};

// Entering lines by keyboard.

TEST_F(TDBGridTest, TwoLinesAreEnteredWithoutTheMouse) {
    Type("j");
    Press(Qt::Key_Right);
    Type("50");
    Press(Qt::Key_Right);
    Type("30");
    Press(Qt::Key_Right);
    Type("pla");
    Press(Qt::Key_Right);
    Type("1");
    Press(Qt::Key_Right);
    Type("10");
    Press(Qt::Key_Return);
    ASSERT_EQ(screen.BagRows.RowCount(), 2);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    EXPECT_EQ(Cell(0, TypeColumn), "50 Kg");
    EXPECT_EQ(Cell(0, QuantityColumn), "30");
    EXPECT_EQ(Cell(1, ClassColumn), "Plastic");
    EXPECT_EQ(Cell(1, TypeColumn), "100 Kg");
    EXPECT_EQ(Cell(1, QuantityColumn), "10");
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
}

TEST_F(TDBGridTest, WhatAnInputMethodCommitsOpensTheCellToo) {
    EXPECT_TRUE(View().testAttribute(Qt::WA_InputMethodEnabled));
    Testing::ScreenDriver driver(screen);
    driver.Commit("ju");
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text(), "Jute");
    Press(Qt::Key_Right);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    GoTo(0, QuantityColumn);
    driver.Commit("x");
    EXPECT_EQ(Editor(), nullptr);
    driver.Commit("7");
    driver.Commit("5");
    EXPECT_EQ(Editor()->text(), "75");
}

TEST_F(TDBGridTest, TypingReplacesWhatStoodInTheCell) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("45");
    EXPECT_EQ(Editor()->text(), "45");
    EXPECT_EQ(Cell(0, QuantityColumn), "30");
    EXPECT_EQ(grid.ColumnText(QuantityColumn), "30");
    Press(Qt::Key_Down);
    EXPECT_EQ(Cell(0, QuantityColumn), "45");
}

TEST_F(TDBGridTest, AnArrowCommitsAnEditBegunByTypingAndMovesOn) {
    const struct {
        Qt::Key key;
        int row, column;
    } moves[] = {
        {Qt::Key_Left, 1, 1}, {Qt::Key_Right, 2, 0}, {Qt::Key_Up, 0, 2}, {Qt::Key_Down, 2, 2}};
    for (const auto& move : moves) {
        FillTwo();
        GoTo(1, QuantityColumn);
        Type("77");
        Press(move.key);
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(Cell(1, QuantityColumn), "77");
        EXPECT_EQ(grid.Row(), move.row);
        EXPECT_EQ(Column(), move.column);
    }
}

TEST_F(TDBGridTest, F2EditsWithTheCaretWhichKeepsTheArrows) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Press(Qt::Key_F2);
    Press(Qt::Key_Left);
    Press(Qt::Key_Up);
    Press(Qt::Key_Down);
    Type("5");
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text(), "350");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), "350");
}

TEST_F(TDBGridTest, F2InAnEditBegunByTypingGivesTheArrowsToTheCaret) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("12");
    Press(Qt::Key_F2);
    Press(Qt::Key_Left);
    Type("9");
    EXPECT_EQ(Editor()->text(), "192");
}

TEST_F(TDBGridTest, EscapeGivesTheEditUp) {
    FillTwo();
    Type("pl");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(DroppedRows(grid), nullptr);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(screen.ActiveControlName(), "Grid");
}

TEST_F(TDBGridTest, BackspaceBeginsAnEmptyCell) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Press(Qt::Key_Backspace);
    Type("8");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Down);
    EXPECT_EQ(Cell(0, QuantityColumn), "");
}

TEST_F(TDBGridTest, ACommitOfTheSameTextIsNoUpdate) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("30");
    Press(Qt::Key_Down);
    EXPECT_TRUE(events.empty());
}

TEST_F(TDBGridTest, ArrowsHomeAndEndMoveBetweenCells) {
    FillTwo();
    Press(Qt::Key_End);
    EXPECT_EQ(Column(), 2);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(Column(), 0);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(Column(), 2);
    Press(Qt::Key_Home);
    EXPECT_EQ(Column(), 0);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.Row(), 0);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(grid.Row(), 2);
    Press(Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 2);
    Press(Qt::Key_End);
    Press(Qt::Key_Right);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(Column(), 2);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(TDBGridTest, TheScreenSeesEachKeyOnceAlsoTheOneThatOpensTheEditor) {
    Type("pl");
    Press(Qt::Key_Right);
    Press(Qt::Key_F4);
    Press(Qt::Key_Escape);
    EXPECT_EQ(screen.keys, (std::vector<int>{'P', 'L', Key::Right, Key::F4, Key::Escape}));
}

// The empty last line.

TEST_F(TDBGridTest, TheEmptyLastLineIsMarkedAndCountsAsNoRow) {
    FillTwo();
    EXPECT_EQ(View().model()->rowCount(), 3);
    EXPECT_EQ(View().model()->headerData(2, Qt::Vertical).toString(), "*");
    EXPECT_EQ(View().model()->headerData(1, Qt::Vertical).toString(), "2");
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

TEST_F(TDBGridTest, TheFirstCellCommittedOnTheEmptyLastLineAddsTheRow) {
    Type("j");
    EXPECT_EQ(screen.BagRows.RowCount(), 0);
    Press(Qt::Key_Right);
    EXPECT_EQ(screen.BagRows.RowCount(), 1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(View().model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    EXPECT_EQ(Cell(0, QuantityColumn), "");
}

TEST_F(TDBGridTest, AnEmptyCellAddsNoRow) {
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    grid.SetFocus();
    Type("x");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(screen.BagRows.RowCount(), 0);
    EXPECT_TRUE(events.empty());
}

TEST_F(TDBGridTest, AnArrayWithoutColumnsGetsThoseOfTheGridWithItsFirstRow) {
    screen.BagRows.Clear();
    grid.ReBind();
    Type("j");
    Press(Qt::Key_Right);
    EXPECT_EQ(screen.BagRows.ColumnCount(), 3);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
}

// Cells for whole numbers.

TEST_F(TDBGridTest, ACellForWholeNumbersTakesDigitsAlone) {
    GoTo(0, QuantityColumn);
    Type("x.-");
    EXPECT_EQ(Editor(), nullptr);
    Type("1a2.3-4");
    EXPECT_EQ(Editor()->text(), "1234");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Editor()->text(), "123");
}

TEST_F(TDBGridTest, ACountAboveSixteenBitsCanBeTyped) {
    GoTo(0, QuantityColumn);
    Type("40000");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), "40000");
}

TEST_F(TDBGridTest, AStoredFigureWithAPointCanBeTakenAwayFrom) {
    Fill({{"Jute", "50 Kg", "30.5"}});
    GoTo(0, QuantityColumn);
    Press(Qt::Key_F2);
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Editor()->text(), "30");
}

// Cells with a list.

TEST_F(TDBGridTest, TypingInACellWithAListCompletesAndDropsItDown) {
    Type("pla");
    EXPECT_EQ(Editor()->text(), "Plastic");
    EXPECT_EQ(Editor()->selectedText(), "stic");
    EXPECT_EQ(HighlightedRow(grid), 1);
    Type("i");
    EXPECT_EQ(Editor()->text(), "Plain");
}

TEST_F(TDBGridTest, F4OpensAndClosesTheListOfACell) {
    FillTwo();
    Press(Qt::Key_F4);
    EXPECT_EQ(HighlightedRow(grid), 0);
    EXPECT_EQ(Editor()->text(), "Jute");
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(Cell(0, ClassColumn), "Plastic");
    EXPECT_EQ(DroppedRows(grid), nullptr);
    EXPECT_EQ(Column(), TypeColumn);
    Press(Qt::ALT | Qt::Key_Down);
    EXPECT_EQ(HighlightedRow(grid), 0);
    Press(Qt::Key_F4);
    EXPECT_EQ(DroppedRows(grid), nullptr);
}

TEST_F(TDBGridTest, F4InACellWithoutAListDoesNothing) {
    GoTo(0, QuantityColumn);
    Press(Qt::Key_F4);
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(TDBGridTest, EnterTakesWhatIsHighlightedAndLeavesTheGrid) {
    FillTwo();
    Press(Qt::Key_F4);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, ClassColumn), "Plain");
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
}

TEST_F(TDBGridTest, TheFirstNameThatBeginsWithTheTextIsTaken) {
    Type("pla");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Editor()->text(), "Pla");
    Press(Qt::Key_Right);
    EXPECT_EQ(Cell(0, ClassColumn), "Plastic");
}

TEST_F(TDBGridTest, TextThatTheListDoesNotHoldLeavesTheCellAsItWas) {
    FillTwo();
    Type("xyz");
    Press(Qt::Key_Right);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    EXPECT_TRUE(events.empty());
    GoTo(2, ClassColumn);
    Type("xyz");
    Press(Qt::Key_Return);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

TEST_F(TDBGridTest, ACellOfAListStillWithoutRowsHoldsNoName) {
    screen.CboBagClass.SetArray(nullptr);
    Type("j");
    Press(Qt::Key_F4);
    Press(Qt::Key_Right);
    EXPECT_EQ(DroppedRows(grid), nullptr);
}

TEST_F(TDBGridTest, AClickOnARowOfTheListStoresItAndKeepsTheFocus) {
    FillTwo();
    Press(Qt::Key_F4);
    screen.ClickRow(grid, 2);
    EXPECT_EQ(Cell(0, ClassColumn), "Plain");
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(events, (std::vector<std::string>{"Change", "AfterColUpdate"}));
    EXPECT_EQ(screen.ActiveControlName(), "Grid");
    Press(Qt::Key_Right);
    EXPECT_EQ(Column(), TypeColumn);
}

TEST_F(TDBGridTest, TheArrowInTheCurrentCellOpensItsList) {
    FillTwo();
    const QRect cell = View().visualRect(View().model()->index(0, ClassColumn));
    const QPoint arrow(cell.right() - 8, cell.center().y());
    screen.Click(*View().viewport(), arrow);
    EXPECT_NE(DroppedRows(grid), nullptr);
    screen.Click(*View().viewport(), arrow);
    EXPECT_EQ(DroppedRows(grid), nullptr);
}

// What commits and what does not.

TEST_F(TDBGridTest, EveryRoadOutOfTheGridCommitsOldAndNewLines) {
    const std::vector<std::function<void()>> roads = {
        [this] { Press(Qt::Key_Tab); },
        [this] { Press(Qt::SHIFT | Qt::Key_Tab); },
        [this] { Press(Qt::Key_Return); },
        [this] { screen.Click(screen.TxtAfter); },
        [this] { screen.TxtBefore.SetFocus(); },
        [this] { grid.Update(); },
        [this] { grid.MoveFirst(); },
        [this] { grid.MoveNext(); },
    };
    for (const int line : {0, 2}) {
        for (const auto& leave : roads) {
            FillTwo();
            grid.SetFocus();
            GoTo(line, QuantityColumn);
            Type("55");
            leave();
            EXPECT_EQ(Editor(), nullptr);
            EXPECT_EQ(Cell(line, QuantityColumn), "55");
        }
    }
}

TEST_F(TDBGridTest, AShortcutOfTheScreenFindsThePendingCellStored) {
    std::string saved;
    screen.OnSave = [&] { saved = Cell(0, QuantityColumn); };
    GoTo(0, QuantityColumn);
    Type("55");
    Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(saved, "55");
}

TEST_F(TDBGridTest, LosingQtsFocusNeitherStoresNorDropsThePendingText) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("5");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(Testing::WaitFor([&] { return other.isActiveWindow(); }));
    EXPECT_EQ(Cell(0, QuantityColumn), "30");
    ASSERT_NE(Editor(), nullptr);
    screen.activateWindow();
    ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
    Type("6");
    EXPECT_EQ(Editor()->text(), "56");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), "56");
}

TEST_F(TDBGridTest, ABoxNeitherStoresNorDropsThePendingText) {
    FillTwo();
    Type("pl");
    {
        const Testing::VisitBox visit([this](QDialog& box) {
            EXPECT_EQ(DroppedRows(grid), nullptr);
            Testing::PressIn(box, Qt::Key_Return);
        });
        MsgBox({.text = "Meanwhile", .title = "Alert"});
    }
    ASSERT_TRUE(Testing::WaitFor([this] { return screen.isActiveWindow(); }));
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
    ASSERT_NE(Editor(), nullptr);
    Type("as");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, ClassColumn), "Plastic");
}

TEST_F(TDBGridTest, QtsFocusGivenBackToTheGridGoesToTheEditor) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("5");
    View().setFocus();
    EXPECT_EQ(screen.focusWidget(), Editor());
    Type("6");
    EXPECT_EQ(Editor()->text(), "56");
}

TEST_F(TDBGridTest, AClickOnAnotherCellCommitsAndGoesThere) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("55");
    ClickCell(1, TypeColumn);
    EXPECT_EQ(Cell(0, QuantityColumn), "55");
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(Column(), TypeColumn);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_TRUE(screen.log.empty());
}

TEST_F(TDBGridTest, ADoubleClickEditsWithTheCaret) {
    FillTwo();
    ClickCell(0, QuantityColumn);
    Testing::ScreenDriver(screen).DoubleClick(*View().viewport(), CellCentre(0, QuantityColumn));
    ASSERT_NE(Editor(), nullptr);
    EXPECT_EQ(Editor()->text(), "30");
    Press(Qt::Key_Left);
    EXPECT_NE(Editor(), nullptr);
}

TEST_F(TDBGridTest, AClickOnAGridThatCannotHaveTheFocusDoesNothing) {
    FillTwo();
    screen.TxtBefore.Validate = [this] { screen.TxtBefore.SetFocus(); };
    screen.TxtBefore.SetFocus();
    ClickCell(1, TypeColumn);
    EXPECT_EQ(screen.ActiveControlName(), "TxtBefore");
    EXPECT_EQ(grid.Row(), 0);
    screen.TxtBefore.Validate = nullptr;
}

TEST_F(TDBGridTest, TheNewTextStandsInTheArrayWhenTheHandlersRun) {
    std::vector<std::string> seen;
    grid.Change = [&] { seen.push_back("Change " + Cell(0, ClassColumn)); };
    grid.AfterColUpdate = [&] {
        grid.Update();
        seen.push_back("AfterColUpdate " + grid.ColumnText(ClassColumn));
    };
    Type("j");
    EXPECT_TRUE(seen.empty());
    Press(Qt::Key_Right);
    EXPECT_EQ(seen, (std::vector<std::string>{"Change Jute", "AfterColUpdate Jute"}));
    EXPECT_EQ(Column(), TypeColumn);
}

// Deleting lines.

TEST_F(TDBGridTest, CtrlDeleteDeletesTheCurrentLine) {
    FillTwo();
    GoTo(0, TypeColumn);
    Press(Qt::CTRL | Qt::Key_Delete);
    ASSERT_EQ(screen.BagRows.RowCount(), 1);
    EXPECT_EQ(Shown(0, ClassColumn), "Plastic");
    EXPECT_EQ(View().model()->rowCount(), 2);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(Column(), TypeColumn);
    EXPECT_EQ(events, std::vector<std::string>{"Change"});
}

TEST_F(TDBGridTest, CtrlDeleteGivesUpAPendingCellWithItsLine) {
    FillTwo();
    Type("pl");
    Press(Qt::CTRL | Qt::Key_Delete);
    ASSERT_EQ(screen.BagRows.RowCount(), 1);
    EXPECT_EQ(Cell(0, ClassColumn), "Plastic");
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(TDBGridTest, TheEmptyLastLineIsNotDeleted) {
    FillTwo();
    GoTo(2, 0);
    Press(Qt::CTRL | Qt::Key_Delete);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
    EXPECT_TRUE(events.empty());
}

TEST_F(TDBGridTest, CtrlShiftDeleteIsTheScreensAndDeletesNoLine) {
    FillTwo();
    Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

TEST_F(TDBGridTest, DeleteOnASelectedLineDeletesIt) {
    FillTwo();
    QHeaderView& lines = *View().verticalHeader();
    screen.Click(*lines.viewport(), QPoint(8, lines.sectionViewportPosition(1) + 6));
    EXPECT_EQ(grid.Row(), 1);
    Press(Qt::Key_Delete);
    ASSERT_EQ(screen.BagRows.RowCount(), 1);
    EXPECT_EQ(Cell(0, ClassColumn), "Jute");
}

TEST_F(TDBGridTest, DeleteOnACellOfALineSelectedNoLongerDeletesNoLine) {
    FillTwo();
    QHeaderView& lines = *View().verticalHeader();
    screen.Click(*lines.viewport(), QPoint(8, lines.sectionViewportPosition(1) + 6));
    Press(Qt::Key_Up);
    Press(Qt::Key_Delete);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

// The grid walked by code.

TEST_F(TDBGridTest, MovingPastTheLastRowLeavesNoCurrentRowAndCreatesNone) {
    FillTwo();
    grid.MoveFirst();
    EXPECT_EQ(grid.ColumnText(ClassColumn), "Jute");
    grid.MoveNext();
    EXPECT_EQ(grid.ColumnText(QuantityColumn), "10");
    grid.MoveNext();
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.ColumnText(ClassColumn), "");
    grid.MoveNext();
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

TEST_F(TDBGridTest, ReBindingReadsTheArrayAnewAndDropsThePendingCell) {
    FillTwo();
    GoTo(1, QuantityColumn);
    Type("9");
    screen.BagRows.Clear();
    screen.BagRows.ReDim(-1, 2);
    grid.ReBind();
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(View().model()->rowCount(), 1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(screen.BagRows.RowCount(), 0);
    EXPECT_TRUE(events.empty());
}

TEST_F(TDBGridTest, RowsThatCodeAddedWithoutReBindingAreNotOverwritten) {
    FillTwo();
    screen.BagRows.ReDim(3, 2);
    GoTo(2, QuantityColumn);
    Type("9");
    Press(Qt::Key_Return);
    EXPECT_EQ(screen.BagRows.RowCount(), 4);
    EXPECT_EQ(Cell(2, QuantityColumn), "9");
}

TEST_F(TDBGridTest, AGridBoundToNothingHasNoRows) {
    TDBGrid unbound(screen, "GrdUnbound");
    unbound.AddColumn("Class", 100);
    unbound.MoveFirst();
    unbound.MoveNext();
    unbound.Update();
    EXPECT_EQ(unbound.Row(), 0);
    EXPECT_EQ(unbound.ColumnText(0), "");
    EXPECT_EQ(unbound.ColumnCount(), 1);
}

// The look.

TEST_F(TDBGridTest, AListThatServesAGridIsNotSeenItself) {
    EXPECT_FALSE(screen.CboBagClass.Visible());
    EXPECT_FALSE(screen.CboBagType.Widget().isVisible());
}

TEST_F(TDBGridTest, TheColumnsFillTheWidthAndCountsStandOnTheRight) {
    FillTwo();
    int width = 0;
    for (int column = 0; column < 3; ++column)
        width += View().columnWidth(column);
    EXPECT_EQ(width, View().viewport()->width());
    EXPECT_GT(View().columnWidth(ClassColumn), View().columnWidth(QuantityColumn));
    const auto alignment =
        View().model()->index(0, QuantityColumn).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    EXPECT_TRUE(alignment & Qt::AlignRight);
    EXPECT_EQ(View().model()->headerData(QuantityColumn, Qt::Horizontal).toString(), "Qty");
}

} // namespace
} // namespace Quillane
