#include "platform/forms/grids/TDBGrid.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/grids/TDBGridTrial.h"

#include <QHeaderView>

namespace Quillane {
namespace {

// Which actions commit a cell.

TEST_F(TDBGridTest, LeavingTheGridCommitsThePendingCell) {
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

TEST_F(TDBGridTest, ShortcutStoresThePendingCellFirst) {
    std::string saved;
    screen.OnSave = [&] { saved = Cell(0, QuantityColumn); };
    GoTo(0, QuantityColumn);
    Type("55");
    Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(saved, "55");
}

TEST_F(TDBGridTest, LosingQtsFocusKeepsThePendingText) {
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

TEST_F(TDBGridTest, BoxKeepsThePendingText) {
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

TEST_F(TDBGridTest, QtsFocusReturnedToTheGridGoesToTheEditor) {
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

TEST_F(TDBGridTest, NewTextIsInTheArrayWhenTheHandlersRun) {
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

TEST_F(TDBGridTest, CtrlDeleteDropsThePendingCellOfItsLine) {
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

TEST_F(TDBGridTest, CtrlShiftDeleteDeletesNoLine) {
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

TEST_F(TDBGridTest, DeleteDeletesNoLineThatIsNotSelectedAnyMore) {
    FillTwo();
    QHeaderView& lines = *View().verticalHeader();
    screen.Click(*lines.viewport(), QPoint(8, lines.sectionViewportPosition(1) + 6));
    Press(Qt::Key_Up);
    Press(Qt::Key_Delete);
    EXPECT_EQ(screen.BagRows.RowCount(), 2);
}

// Moves by code.

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

TEST_F(TDBGridTest, ReBindReadsTheArrayAgainAndDropsThePendingCell) {
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

TEST_F(TDBGridTest, RowsChangedByCodeAreReadBeforeAMove) {
    for (const int lines : {1, 3, 5}) {
        FillTwo();
        grid.MoveNext();
        screen.BagRows.Clear();
        screen.BagRows.ReDim(lines - 1, 2);
        for (int line = 0; line < lines; ++line)
            screen.BagRows.Set(line, QuantityColumn, std::to_string(line + 1));
        grid.MoveFirst();
        EXPECT_EQ(View().model()->rowCount(), lines + 1);
        for (int line = 0; line < lines; ++line) {
            EXPECT_EQ(grid.ColumnText(QuantityColumn), std::to_string(line + 1)) << lines;
            EXPECT_EQ(Shown(line, QuantityColumn), std::to_string(line + 1)) << lines;
            grid.MoveNext();
        }
        EXPECT_EQ(grid.ColumnText(QuantityColumn), "") << lines;
    }
}

TEST_F(TDBGridTest, MovingOnFromARowThatCodeHasChangedGoesToTheOneBelow) {
    FillTwo();
    screen.BagRows.ReDim(3, 2);
    screen.BagRows.Set(1, QuantityColumn, "11");
    grid.MoveNext();
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.ColumnText(QuantityColumn), "11");
    EXPECT_EQ(View().model()->rowCount(), 5);
}

TEST_F(TDBGridTest, RefreshingShowsTheRowsThatTheArrayHasNow) {
    FillTwo();
    GoTo(1, TypeColumn);
    screen.BagRows.ReDim(3, 2);
    grid.Refresh();
    EXPECT_EQ(View().model()->rowCount(), 5);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(Column(), TypeColumn);
    screen.BagRows.Clear();
    screen.BagRows.ReDim(-1, 2);
    grid.Refresh();
    EXPECT_EQ(View().model()->rowCount(), 1);
    EXPECT_EQ(grid.Row(), 0);
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

TEST_F(TDBGridTest, ListOfAGridIsHidden) {
    EXPECT_FALSE(screen.CboBagClass.Visible());
    EXPECT_FALSE(screen.CboBagType.Widget().isVisible());
}

TEST_F(TDBGridTest, ColumnsFillTheWidthAndCountsAreRightAligned) {
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
