// Every way in which the focus moves, each with its events in order. The table runs off screen, on
// a bare X server and under a window manager, with the same results.

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QMessageBox>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

struct Row {
    const char* name;
    std::function<void(TrialScreen&, ScreenDriver&)> act;
    Events expected;
    const char* active;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class FocusTable : public testing::TestWithParam<Row> {};

void PressReturn(QDialog& box) {
    PressIn(box, Qt::Key_Return);
}

void ShowRealBox() {
    const VisitBox visit(PressReturn);
    MsgBox({.text = "Text", .title = "Title"});
}

TEST_P(FocusTable, GivesTheSameEventsEverywhere) {
    TrialScreen screen;
    screen.Show();
    ASSERT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
    ScreenDriver driver(screen);
    screen.Taken();

    GetParam().act(screen, driver);

    QCoreApplication::processEvents();
    EXPECT_EQ(GetParam().expected, screen.Taken());
    EXPECT_EQ(GetParam().active, screen.ActiveControlName());
    if (screen.IsLoaded()) {
        EXPECT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
        const VisualControl* active = screen.ActiveControl();
        EXPECT_EQ(active, screen.ControlOf(screen.focusWidget()));
        EXPECT_EQ(active, screen.ControlOf(QApplication::focusWidget()));
    }
}

const Row Moves[] = {
    {"Tab",
     [](auto&, auto& driver) { driver.Press(Qt::Key_Tab); },
     {"Validate First", "LostFocus First", "GotFocus Second"},
     "Second"},
    {"BacktabWrapsAround",
     [](auto&, auto& driver) { driver.Press(Qt::Key_Backtab); },
     {"Validate First", "LostFocus First", "GotFocus BtnGo"},
     "BtnGo"},
    {"TabSkipsWhatCannotTakeTheFocus",
     [](auto& screen, auto& driver) {
         screen.Second.SetEnabled(false);
         screen.Third.SetVisible(false);
         screen.Around.SetVisible(false);
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus BtnGo"},
     "BtnGo"},
    {"TabWithNowhereToGo",
     [](auto& screen, auto& driver) {
         for (VisualControl* each : {static_cast<VisualControl*>(&screen.Second),
                                     static_cast<VisualControl*>(&screen.Third),
                                     static_cast<VisualControl*>(&screen.InFrame),
                                     static_cast<VisualControl*>(&screen.BtnGo)})
             each->SetEnabled(false);
         driver.Press(Qt::Key_Tab);
     },
     {},
     "First"},
    {"TabFollowsTheDeclarationAmongEquals",
     [](auto& screen, auto& driver) {
         screen.Third.SetTabIndex(1);
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"MousePress",
     [](auto& screen, auto& driver) { driver.Click(screen.Third); },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"MousePressOnAClosedBox",
     [](auto& screen, auto& driver) {
         screen.Third.SetEnabled(false);
         driver.Click(screen.Third);
     },
     {},
     "First"},
    {"MousePressOnTheFormItself",
     [](auto& screen, auto& driver) { driver.Click(screen, QPoint(2, 2)); },
     {},
     "First"},
    {"MousePressOnAFrame",
     [](auto& screen, auto& driver) { driver.Click(screen.Around.Widget(), QPoint(3, 3)); },
     {},
     "First"},
    {"MousePressOnTheActiveBox",
     [](auto& screen, auto& driver) { driver.Click(screen.First); },
     {},
     "First"},
    {"SetFocus",
     [](auto& screen, auto&) { screen.Third.SetFocus(); },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"SetFocusOnTheActiveBox", [](auto& screen, auto&) { screen.First.SetFocus(); }, {}, "First"},
    {"SetFocusOnWhatCannotTakeIt",
     [](auto& screen, auto&) {
         screen.Second.SetEnabled(false);
         screen.Third.SetVisible(false);
         screen.Around.SetVisible(false);
         EXPECT_EQ(5, FailureNumberOf([&] { screen.Second.SetFocus(); }));
         EXPECT_EQ(5, FailureNumberOf([&] { screen.Third.SetFocus(); }));
         EXPECT_EQ(5, FailureNumberOf([&] { screen.InFrame.SetFocus(); }));
     },
     {},
     "First"},
    {"SetFocusInGotFocus",
     [](auto& screen, auto& driver) {
         screen.Second.GotFocus = [&] { screen.Third.SetFocus(); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Second", "Validate Second", "LostFocus Second",
      "GotFocus Third"},
     "Third"},
    {"SetFocusInLostFocus",
     [](auto& screen, auto& driver) {
         screen.First.LostFocus = [&] { screen.Third.SetFocus(); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"SetFocusInValidateBeatsTheOperatorsTarget",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.Third.SetFocus(); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"SetFocusInValidateBeatsTheMouse",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.Third.SetFocus(); };
         driver.Click(screen.Second);
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"SetFocusInValidateBackToTheBoxItself",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.First.SetFocus(); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First"},
     "First"},
    {"ValidateSeesTheBoxThatIsLeftAsActive",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.Log.push_back(screen.ActiveControlName()); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "First", "LostFocus First", "GotFocus Second"},
     "Second"},
    {"ValidateIsNotReentered",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] {
             driver.Press(Qt::Key_Tab);
             driver.Click(screen.Third);
         };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Second"},
     "Second"},
    {"ValidateClosesItsOwnBox",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.First.SetEnabled(false); };
         driver.Click(screen.Third);
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"ValidateClosesItsOwnBoxAndSetsTheFocus",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] {
             screen.First.SetEnabled(false);
             screen.InFrame.SetFocus();
         };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus InFrame"},
     "InFrame"},
    {"ValidateClosesTheOperatorsTarget",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.Second.SetEnabled(false); };
         driver.Click(screen.Second);
     },
     {"Validate First"},
     "First"},
    {"ValidateShowsABox",
     [](auto& screen, auto& driver) {
         screen.First.Validate = ShowRealBox;
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Second"},
     "Second"},
    {"ABox", [](auto&, auto&) { ShowRealBox(); }, {}, "First"},
    {"ABoxAndThenTab",
     [](auto&, auto& driver) {
         ShowRealBox();
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "LostFocus First", "GotFocus Second"},
     "Second"},
    {"AModalScreen",
     [](auto& screen, auto&) {
         TrialScreen above("Above");
         RunModal(
             above,
             [](Screen& shown) {
                 ScreenDriver(shown).Press(Qt::Key_Tab);
                 shown.Unload();
             },
             &screen);
         EXPECT_EQ((Events{"Form_Load", "GotFocus First", "Validate First", "LostFocus First",
                           "GotFocus Second", "Form_Unload"}),
                   above.Taken());
     },
     {},
     "First"},
    {"DisablingTheActiveControl",
     [](auto& screen, auto&) { screen.First.SetEnabled(false); },
     {"LostFocus First", "GotFocus Second"},
     "Second"},
    {"HidingTheActiveControl",
     [](auto& screen, auto&) {
         screen.Second.SetEnabled(false);
         screen.First.SetVisible(false);
     },
     {"LostFocus First", "GotFocus Third"},
     "Third"},
    {"DisablingTheFrameAroundTheActiveControl",
     [](auto& screen, auto&) {
         screen.InFrame.SetFocus();
         screen.Taken();
         screen.Around.SetEnabled(false);
     },
     {"LostFocus InFrame", "GotFocus BtnGo"},
     "BtnGo"},
    {"DisablingTheLastControl",
     [](auto& screen, auto&) {
         screen.Second.SetEnabled(false);
         screen.Third.SetEnabled(false);
         screen.Around.SetEnabled(false);
         screen.BtnGo.SetEnabled(false);
         screen.First.SetEnabled(false);
     },
     {"LostFocus First", "Form_GotFocus"},
     ""},
    {"TabFromTheFormItself",
     [](auto& screen, auto& driver) {
         for (VisualControl* each : {static_cast<VisualControl*>(&screen.Second),
                                     static_cast<VisualControl*>(&screen.Third),
                                     static_cast<VisualControl*>(&screen.InFrame),
                                     static_cast<VisualControl*>(&screen.BtnGo),
                                     static_cast<VisualControl*>(&screen.First)})
             each->SetEnabled(false);
         screen.Taken();
         screen.Third.SetEnabled(true);
         driver.Press(Qt::Key_Tab);
     },
     {"GotFocus Third"},
     "Third"},
    {"AnotherWindow",
     [](auto& screen, auto&) {
         TrialScreen other("Other");
         other.Show();
         EXPECT_TRUE(WaitFor([&] { return other.isActiveWindow(); }));
         screen.activateWindow();
         EXPECT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
         EXPECT_EQ((Events{"Form_Load", "GotFocus First"}), other.Taken());
         other.Unload();
         screen.activateWindow();
     },
     {},
     "First"},
    {"SetFocusWhileAnotherWindowIsActive",
     [](auto& screen, auto&) {
         TrialScreen other("Other");
         other.Show();
         EXPECT_TRUE(WaitFor([&] { return other.isActiveWindow(); }));
         screen.Third.SetFocus();
         other.Unload();
         screen.activateWindow();
         EXPECT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
     },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"AssistiveTechnologyMovingQtsFocus",
     [](auto& screen, auto&) { screen.Third.Widget().setFocus(); },
     {"Validate First", "LostFocus First", "GotFocus Third"},
     "Third"},
    {"Unloading", [](auto& screen, auto&) { EXPECT_TRUE(screen.Unload()); }, {"Form_Unload"}, ""},
    {"UnloadingInsideValidate",
     [](auto& screen, auto& driver) {
         screen.First.Validate = [&] { screen.Unload(); };
         driver.Press(Qt::Key_Tab);
     },
     {"Validate First", "Form_Unload"},
     ""},
    {"UnloadingInsideLostFocus",
     [](auto& screen, auto& driver) {
         screen.First.LostFocus = [&] { screen.Unload(); };
         driver.Click(screen.Second);
     },
     {"Validate First", "LostFocus First", "Form_Unload"},
     ""},
    {"AnUnloadThatIsCancelled",
     [](auto& screen, auto&) {
         screen.OnUnload = [](bool& cancel) { cancel = true; };
         EXPECT_FALSE(screen.close());
     },
     {"Form_Unload"},
     "First"},
};

INSTANTIATE_TEST_SUITE_P(Moves, FocusTable, testing::ValuesIn(Moves),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace Quillane::Testing
