#include "platform/forms/grids/TDBGrid.h"

#include "platform/forms/grids/TDBGridTrial.h"

#include <QApplication>
#include <QClipboard>

namespace Quillane {
namespace {

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

TEST_F(TDBGridTest, TextOfAnInputMethodOpensTheCell) {
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

TEST_F(TDBGridTest, TypingReplacesTheTextOfTheCell) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("45");
    EXPECT_EQ(Editor()->text(), "45");
    EXPECT_EQ(Cell(0, QuantityColumn), "30");
    EXPECT_EQ(grid.ColumnText(QuantityColumn), "30");
    Press(Qt::Key_Down);
    EXPECT_EQ(Cell(0, QuantityColumn), "45");
}

TEST_F(TDBGridTest, AnArrowCommitsAnEditThatBeganByTypingAndMovesOn) {
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

TEST_F(TDBGridTest, F2InAnEditThatBeganByTypingGivesTheArrowsToTheCaret) {
    FillTwo();
    GoTo(0, QuantityColumn);
    Type("12");
    Press(Qt::Key_F2);
    Press(Qt::Key_Left);
    Type("9");
    EXPECT_EQ(Editor()->text(), "192");
}

TEST_F(TDBGridTest, EscapeCancelsTheEdit) {
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

TEST_F(TDBGridTest, ACommitOfTheSameTextIsNotAnUpdate) {
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

TEST_F(TDBGridTest, TheEmptyLastLineIsMarkedAndIsNotCountedAsARow) {
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

// Cells for numbers.

TEST_F(TDBGridTest, ACellForNumbersTakesDigitsAndOnePoint) {
    GoTo(0, QuantityColumn);
    Type("x-,");
    EXPECT_EQ(Editor(), nullptr);
    Type("1a2.3-4.5");
    EXPECT_EQ(Editor()->text(), "12.345");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Editor()->text(), "12.34");
    Press(Qt::CTRL | Qt::Key_A);
    Type("12x4.5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), "124.5");
}

TEST_F(TDBGridTest, ANumberMayBeginWithItsPoint) {
    GoTo(0, QuantityColumn);
    Type(".");
    ASSERT_NE(Editor(), nullptr);
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), ".5");
}

TEST_F(TDBGridTest, TextThatIsNotANumberIsRefusedAsAWhole) {
    GoTo(0, QuantityColumn);
    Type("1");
    const auto paste = [this](const char* text) {
        QApplication::clipboard()->setText(text);
        Press(Qt::CTRL | Qt::Key_V);
    };
    const auto commit = [this](const char* text) { Testing::ScreenDriver(screen).Commit(text); };
    paste("2.5");
    commit("7");
    for (const char* text : {"12x4.5", "-2", "1 2", "2\n", ".5", "1.2.3", "12345"}) {
        paste(text);
        EXPECT_EQ(Editor()->text(), "12.57") << text;
        commit(text);
        EXPECT_EQ(Editor()->text(), "12.57") << text;
    }
}

TEST_F(TDBGridTest, ACountAboveSixteenBitsCanBeTyped) {
    GoTo(0, QuantityColumn);
    Type("40000");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, QuantityColumn), "40000");
}

TEST_F(TDBGridTest, TextThatIsNotANumberReplacesNoSelection) {
    Fill({{"Jute", "50 Kg", "1234567"}});
    GoTo(0, QuantityColumn);
    Press(Qt::Key_F2);
    Press(Qt::CTRL | Qt::Key_A);
    QApplication::clipboard()->setText("12x4.5");
    Press(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(Editor()->text(), "1234567");
    QApplication::clipboard()->setText("12.5");
    Press(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ(Editor()->text(), "12.5");
    Press(Qt::CTRL | Qt::Key_A);
    Type(".");
    EXPECT_EQ(Editor()->text(), ".") << "the removed point is not counted";
}

TEST_F(TDBGridTest, ANumberHasNoMoreThanNineCharacters) {
    GoTo(0, QuantityColumn);
    Type("12345.67890");
    EXPECT_EQ(Editor()->text(), "12345.678");
}

TEST_F(TDBGridTest, StoredTextThatIsNotANumberCanOnlyBeShortened) {
    Fill({{"Jute", "50 Kg", "-30.5"}});
    GoTo(0, QuantityColumn);
    Press(Qt::Key_F2);
    Type("7");
    EXPECT_EQ(Editor()->text(), "-30.5");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Editor()->text(), "-30");
    Press(Qt::CTRL | Qt::Key_Z);
    Type("x");
    EXPECT_EQ(Editor()->text(), "-30.5");
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    Type("7");
    EXPECT_EQ(Editor()->text(), "730.5");
}

// Cells with a list.

TEST_F(TDBGridTest, TypingInACellWithAListCompletesTheTextAndOpensTheList) {
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

TEST_F(TDBGridTest, EnterTakesTheHighlightedRowAndLeavesTheGrid) {
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

TEST_F(TDBGridTest, UnlistedTextKeepsTheFormerTextOfTheCell) {
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

TEST_F(TDBGridTest, CellWithAnEmptyListAcceptsNoName) {
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

} // namespace
} // namespace Quillane
