#include "platform/forms/grids/SSOleDBGridTrial.h"

#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace Quillane {
namespace {

TEST_F(SSOleDBGridTest, ArrowsMoveByALineAndPageKeysByTheLinesInView) {
    const auto rows = Show(1000);
    const int page = LinesInView() - 1;
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(rows->Position(), 2);
    Press(Qt::Key_Up);
    EXPECT_EQ(rows->Position(), 1);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(rows->Position(), 1 + page);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(rows->Position(), 1 + 2 * page);
    EXPECT_TRUE(InView(1 + 2 * page));
    Press(Qt::Key_PageUp);
    EXPECT_EQ(rows->Position(), 1 + page);
}

TEST_F(SSOleDBGridTest, HomeAndEndMoveToTheEndsWithCtrlAndWithout) {
    const auto rows = Show(1000);
    Press(Qt::Key_End);
    EXPECT_EQ(rows->Position(), 999);
    Press(Qt::Key_Home);
    EXPECT_EQ(rows->Position(), 0);
    Press(Qt::CTRL | Qt::Key_End);
    EXPECT_EQ(rows->Position(), 999);
    EXPECT_TRUE(InView(999));
    Press(Qt::CTRL | Qt::Key_Home);
    EXPECT_EQ(rows->Position(), 0);
    EXPECT_EQ(Top(), 0);
}

TEST_F(SSOleDBGridTest, AtTheEndsTheKeysDoNotMove) {
    const auto rows = Show(30);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Home})
        Press(key);
    EXPECT_EQ(rows->Position(), 0);
    Press(Qt::Key_End);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        Press(key);
    EXPECT_EQ(rows->Position(), 29);
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(screen.ActiveControlName(), "Grid");
}

TEST_F(SSOleDBGridTest, FromTheEndOfTheRecordsetTheKeysReturnToItsRows) {
    const auto rows = Show(30);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End}) {
        rows->SetPosition(30);
        Press(key);
        EXPECT_EQ(rows->Position(), 29);
    }
    rows->SetPosition(30);
    Press(Qt::Key_Home);
    EXPECT_EQ(rows->Position(), 0);
}

TEST_F(SSOleDBGridTest, OtherKeysReachTheScreenAndMoveNothing) {
    const auto rows = Show(30);
    rows->SetPosition(5);
    screen.keys.clear();
    screen.Type("p7 ");
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Left), QKeyCombination(Qt::Key_Right),
          QKeyCombination(Qt::Key_Escape), QKeyCombination(Qt::Key_Delete), Qt::CTRL | Qt::Key_Down,
          Qt::SHIFT | Qt::Key_Down, Qt::ALT | Qt::Key_Down})
        Press(key);
    EXPECT_EQ(rows->Position(), 5);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(grid.Rows(), 30);
    EXPECT_EQ(std::count(screen.keys.begin(), screen.keys.end(), int{Key::Down}), 3);
}

TEST_F(SSOleDBGridTest, EnterAndTabReachTheScreen) {
    EXPECT_FALSE(grid.HandleKey(Key::Return, ShiftState::None));
    EXPECT_FALSE(grid.HandleKey(Key::Return, ShiftState::Shift));
    EXPECT_FALSE(grid.HandleKey(Key::Tab, ShiftState::None));
    Show(30);
    // In this test the screen turns Enter into Tab.
    Press(Qt::Key_Return);
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
    grid.SetFocus();
    Press(Qt::SHIFT | Qt::Key_Tab);
    EXPECT_EQ(screen.ActiveControlName(), "TxtFilter");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_EQ(screen.ActiveControlName(), "TxtAfter");
}

TEST_F(SSOleDBGridTest, AClickTakesTheFocusAndSelectsItsLine) {
    const auto rows = Show(1000);
    View().verticalScrollBar()->setValue(100);
    screen.TxtFilter.SetFocus();
    ClickLine(103);
    EXPECT_EQ(screen.ActiveControlName(), "Grid");
    EXPECT_EQ(rows->Position(), 103);
    EXPECT_EQ(Top(), 100);
}

TEST_F(SSOleDBGridTest, AClickBelowTheLastLineOrWithAnotherButtonSelectsNothing) {
    const auto rows = Show(3);
    rows->SetPosition(1);
    screen.Click(Viewport(), QPoint(60, 5 * LineHeight()));
    EXPECT_EQ(rows->Position(), 1);
    const QPointF place = PlaceOf(2);
    QMouseEvent press(QEvent::MouseButtonPress, place, Viewport().mapToGlobal(place),
                      Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Viewport(), &press);
    EXPECT_EQ(rows->Position(), 1);
}

TEST_F(SSOleDBGridTest, ADoubleClickRunsItsHandlerOnTheLineThatWasPressed) {
    const auto rows = Show(1000);
    std::vector<int> chosen;
    grid.DblClick = [&] { chosen.push_back(rows->Fields("ArrivalId").Long()); };
    DoubleClick(Viewport(), PlaceOf(4));
    EXPECT_EQ(chosen, std::vector<int>{5});
    // Also on the last line, which is only partly visible: it is not scrolled between the clicks.
    View().resize(600, View().height() + LineHeight() / 2 - Viewport().height() % LineHeight());
    View().verticalScrollBar()->setValue(100);
    const int cut = 100 + LinesInView();
    DoubleClick(Viewport(), QPoint(60, Viewport().height() - 4));
    EXPECT_EQ(chosen, (std::vector<int>{5, cut + 1}));
}

TEST_F(SSOleDBGridTest, ADoubleClickRunsItsHandlerWithoutRowsButNotOnTheHeader) {
    int runs = 0;
    grid.DblClick = [&] { ++runs; };
    DoubleClick(Viewport(), QPoint(60, 40));
    EXPECT_EQ(runs, 1);
    Show(0);
    DoubleClick(Viewport(), QPoint(60, 40));
    EXPECT_EQ(runs, 2);
    Show(10);
    DoubleClick(View(), QPoint(60, 8));
    EXPECT_EQ(runs, 2);
    grid.DblClick = {};
    DoubleClick(Viewport(), QPoint(60, 40));
}

TEST_F(SSOleDBGridTest, ADoubleClickMayCloseTheScreen) {
    const auto rows = Show(10);
    grid.DblClick = [this, &rows] {
        rows->Close();
        screen.Unload();
    };
    DoubleClick(Viewport(), PlaceOf(2));
    EXPECT_FALSE(screen.IsLoaded());
}

TEST_F(SSOleDBGridTest, TheWheelScrollsAndKeepsTheCurrentRow) {
    const auto rows = Show(1000);
    const QPointF place = PlaceOf(2);
    const auto turn = [&](int notches) {
        QWheelEvent wheel(place, Viewport().mapToGlobal(place), {}, QPoint(0, notches * 120), {},
                          {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Viewport(), &wheel);
    };
    turn(-40);
    turn(-40);
    EXPECT_GT(Top(), LinesInView());
    EXPECT_EQ(rows->Position(), 0);
    // The next key moves from the current row and scrolls it into view again.
    Press(Qt::Key_Down);
    EXPECT_EQ(rows->Position(), 1);
    EXPECT_TRUE(InView(1));
    turn(1);
    EXPECT_EQ(Top(), 0);
}

} // namespace
} // namespace Quillane
