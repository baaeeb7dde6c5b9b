#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/DTPicker.h"
#include "platform/forms/core/Boxes.h"
#include "support/ScreenDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class ScreenKeys : public testing::Test {
protected:
    ScreenKeys() {
        screen.Show();
        screen.LogKeys = true;
        screen.Taken();
    }

    TrialScreen screen;
    ScreenDriver driver{screen};
};

// The action of Enter on the station's screens: it moves on like Tab.
void EnterMovesOn(TrialScreen& screen) {
    screen.OnKeyDown = [&screen](int& key, int) {
        if (key == Key::Return) {
            key = 0;
            screen.SendTab();
            screen.Log.push_back("Enter handled");
        }
    };
}

TEST_F(ScreenKeys, ReachTheScreenBeforeTheActiveControl) {
    screen.First.Change = [this] { screen.Log.push_back("Change " + screen.First.Text()); };
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0", "KeyPress 97", "Change a"}), screen.Taken());
}

TEST_F(ScreenKeys, AreSwallowedByKeyDown) {
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0"}), screen.Taken());
    EXPECT_EQ("", screen.First.Text());
}

TEST_F(ScreenKeys, AreSwallowedByKeyPress) {
    screen.OnKeyPress = [](int& character) { character = character == 'b' ? 0 : character; };
    driver.Type("abc");
    EXPECT_EQ("ac", screen.First.Text());
}

TEST_F(ScreenKeys, OfASingleModifierReachKeyDown) {
    screen.LogModifiers = true;
    driver.Press(Qt::Key_Shift).Press(Qt::Key_Control).Press(Qt::Key_Alt);
    EXPECT_EQ((Events{"KeyDown 16 1", "KeyDown 17 2", "KeyDown 18 4"}), screen.Taken());
}

struct TextCase {
    QKeyCombination key;
    Events expected;
};

TEST_F(ScreenKeys, GiveKeyPressForCharactersAndBackspaceWithoutCtrlOrAlt) {
    const TextCase cases[] = {
        {Qt::Key_Space, {"KeyDown 32 0", "KeyPress 32"}},
        {Qt::Key_Backspace, {"KeyDown 8 0", "KeyPress 8"}},
        {Qt::Key_Return, {"KeyDown 13 0"}},
        {Qt::Key_Enter, {"KeyDown 13 0"}},
        {Qt::Key_Escape, {"KeyDown 27 0"}},
        {Qt::Key_Delete, {"KeyDown 46 0"}},
        {Qt::Key_F1, {"KeyDown 112 0"}},
        {Qt::CTRL | Qt::Key_Q, {"KeyDown 81 2"}},
        {Qt::ALT | Qt::Key_Q, {"KeyDown 81 4"}},
        {Qt::CTRL | Qt::Key_Backspace, {"KeyDown 8 2"}},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Delete, {"KeyDown 46 3"}},
    };
    for (const TextCase& each : cases) {
        driver.Press(each.key);
        EXPECT_EQ(each.expected, screen.Taken()) << each.key.toCombined();
    }
    EXPECT_EQ("First", screen.ActiveControlName());
}

TEST_F(ScreenKeys, OfTabGiveNoKeyPress) {
    driver.Press(Qt::Key_Tab).Press(Qt::SHIFT | Qt::Key_Tab);
    EXPECT_EQ((Events{"KeyDown 9 0", "Validate First", "LostFocus First", "GotFocus Second",
                      "KeyDown 9 1", "Validate Second", "LostFocus Second", "GotFocus First"}),
              screen.Taken());
}

TEST_F(ScreenKeys, OfTabDoNotMoveTheFocusIfTheScreenSwallowsThem) {
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Press(Qt::Key_Tab);
    EXPECT_EQ("First", screen.ActiveControlName());
}

TEST_F(ScreenKeys, OfEscapeAndEnterNeitherCloseTheScreenNorPressAButton) {
    int clicks = 0;
    screen.BtnGo.Click = [&] { ++clicks; };
    driver.Press(Qt::Key_Escape).Press(Qt::Key_Return).Press(Qt::Key_Enter);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(0, clicks);
}

TEST_F(ScreenKeys, CommittedByAnInputMethodGiveKeyPressForEachCharacter) {
    driver.Commit("aاx");
    EXPECT_EQ((Events{"KeyPress 97", "KeyPress 1575", "KeyPress 120"}), screen.Taken());
    EXPECT_EQ("aاx", screen.First.Text());
}

TEST_F(ScreenKeys, CommittedByAnInputMethodAreSwallowedTogetherWithOneOfThem) {
    screen.OnKeyPress = [](int& character) { character = character == 'x' ? 0 : character; };
    driver.Commit("axb");
    EXPECT_EQ((Events{"KeyPress 97", "KeyPress 120", "KeyPress 98"}), screen.Taken());
    EXPECT_EQ("", screen.First.Text());
    driver.Commit("ab");
    EXPECT_EQ("ab", screen.First.Text());
}

TEST_F(ScreenKeys, ReachAFormWithoutAnActiveControl) {
    for (VisualControl* each :
         {static_cast<VisualControl*>(&screen.Second), static_cast<VisualControl*>(&screen.Third),
          static_cast<VisualControl*>(&screen.InFrame), static_cast<VisualControl*>(&screen.BtnGo),
          static_cast<VisualControl*>(&screen.First)})
        each->SetEnabled(false);
    screen.Taken();
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0", "KeyPress 97"}), screen.Taken());
}

TEST_F(ScreenKeys, OfABoxDoNotReachTheScreen) {
    {
        const VisitBox visit([](QDialog& box) { PressIn(box, Qt::Key_Escape); });
        MsgBox({.text = "Text", .title = "Title", .buttons = BoxButtons::YesNo});
    }
    EXPECT_EQ(Events{}, screen.Taken());
}

TEST_F(ScreenKeys, OfAModalScreenDoNotReachTheScreenBelow) {
    TrialScreen above("Above");
    RunModal(
        above,
        [](Screen& shown) {
            ScreenDriver(shown).Type("a").Press(Qt::Key_Tab);
            shown.Unload();
        },
        &screen);
    EXPECT_EQ("a", above.First.Text());
    EXPECT_EQ(Events{}, screen.Taken());
}

TEST_F(ScreenKeys, ForAScreenBelowAModalOneReachTheModalOne) {
    TrialScreen above("Above");
    RunModal(above, [&](Screen& shown) {
        driver.Click(screen.Third);
        shown.Unload();
    });
    EXPECT_EQ(Events{}, screen.Taken());
}

TEST_F(ScreenKeys, ThatCloseTheScreenEndThere) {
    screen.OnKeyDown = [this](int&, int) { screen.Unload(); };
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0", "Form_Unload"}), screen.Taken());
    EXPECT_EQ("", screen.First.Text());
}

TEST_F(ScreenKeys, ThatCloseAndShowTheScreenEndThere) {
    screen.OnKeyDown = [this](int&, int) {
        screen.Unload();
        screen.Show();
    };
    driver.Type("a");
    EXPECT_EQ("", screen.First.Text());
}

TEST_F(ScreenKeys, WithAltPressTheButtonThatTheyName) {
    screen.BtnGo.Click = [this] { screen.Log.push_back("Click"); };
    driver.Press(Qt::ALT | Qt::Key_G);
    EXPECT_EQ(
        (Events{"KeyDown 71 4", "Validate First", "LostFocus First", "GotFocus BtnGo", "Click"}),
        screen.Taken());
}

TEST_F(ScreenKeys, WithAltPressNoDisabledButtonAndNoneIfTheScreenSwallowsThem) {
    screen.BtnGo.Click = [this] { screen.Log.push_back("Click"); };
    screen.BtnGo.SetEnabled(false);
    driver.Press(Qt::ALT | Qt::Key_G);
    screen.BtnGo.SetEnabled(true);
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Press(Qt::ALT | Qt::Key_G);
    EXPECT_EQ((Events{"KeyDown 71 4", "KeyDown 71 4"}), screen.Taken());
}

// A cell editor is opened by passing it the same key event.
class HandingOn : public VisualControl {
public:
    explicit HandingOn(Screen& owner) : VisualControl(owner, "Cells", "TDBGrid") {
        view_.setFocusPolicy(Qt::StrongFocus);
    }
    QWidget& Widget() override { return view_; }
    QLineEdit& Editor() { return view_.editor; }
    std::string Editing() const { return view_.editor.text().toStdString(); }

private:
    class View : public QWidget {
    public:
        QLineEdit editor{this};

    protected:
        void keyPressEvent(QKeyEvent* event) override {
            QCoreApplication::sendEvent(&editor, event);
        }
    };
    View view_;
};

TEST(ScreenKeysHandedOn, ReachTheScreenOnce) {
    TrialScreen screen;
    HandingOn cells(screen);
    cells.Widget().setParent(&screen);
    screen.Show();
    cells.SetFocus();
    screen.LogKeys = true;
    screen.Taken();
    ScreenDriver(screen).Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0", "KeyPress 97"}), screen.Taken());
    EXPECT_EQ("a", cells.Editing());
    // And the editor keeps the focus that its control has given it.
    cells.Editor().setFocus();
    cells.SetFocus();
    EXPECT_EQ(&cells.Editor(), screen.focusWidget());
    cells.Widget().setParent(nullptr);
}

TEST_F(ScreenKeys, SendATabThatTheScreenGetsAsAKeyAfterTheHandlingHasEnded) {
    EnterMovesOn(screen);
    driver.Press(Qt::Key_Return);
    EXPECT_EQ((Events{"KeyDown 13 0", "Enter handled", "KeyDown 9 0", "Validate First",
                      "LostFocus First", "GotFocus Second"}),
              screen.Taken());
}

TEST_F(ScreenKeys, SendATabBeforeTheNextKey) {
    EnterMovesOn(screen);
    driver.Type("a").Press(Qt::Key_Return).Type("b").Press(Qt::Key_Enter).Type("c");
    EXPECT_EQ("a", screen.First.Text());
    EXPECT_EQ("b", screen.Second.Text());
    EXPECT_EQ("c", screen.Third.Text());
}

TEST_F(ScreenKeys, SendATabAtOnceOutsideOfAnyKey) {
    screen.SendTab();
    EXPECT_EQ((Events{"KeyDown 9 0", "Validate First", "LostFocus First", "GotFocus Second"}),
              screen.Taken());
}

TEST_F(ScreenKeys, SendATabToTheScreenThatAskedForIt) {
    TrialScreen above("Above");
    EnterMovesOn(above);
    screen.OnKeyDown = [&](int& key, int) {
        if (key != Key::Return)
            return;
        key = 0;
        screen.SendTab();
        RunModal(above, [](Screen& shown) {
            ScreenDriver(shown).Press(Qt::Key_Return).Type("x");
            shown.Unload();
        });
        screen.Log.push_back("Modal over");
    };
    driver.Press(Qt::Key_Return);
    EXPECT_EQ("x", above.Second.Text());
    EXPECT_EQ((Events{"KeyDown 13 0", "Modal over", "KeyDown 9 0", "Validate First",
                      "LostFocus First", "GotFocus Second"}),
              screen.Taken());
}

TEST_F(ScreenKeys, SendATabAtOnceToAModalScreenThatHandlesNoKey) {
    TrialScreen above("Above");
    screen.OnKeyDown = [&](int&, int) {
        RunModal(above, [&](Screen& shown) {
            shown.SendTab();
            EXPECT_EQ("Second", shown.ActiveControlName());
            shown.Unload();
        });
    };
    driver.Press(Qt::Key_F1);
}

TEST_F(ScreenKeys, SendNoTabToAClosedScreen) {
    screen.OnKeyDown = [this](int& key, int) {
        key = 0;
        screen.SendTab();
        screen.Unload();
    };
    driver.Press(Qt::Key_Return);
    EXPECT_EQ((Events{"KeyDown 13 0", "Form_Unload"}), screen.Taken());
}

TEST(ScreenKeysOfACalendar, ReachTheScreenAndEnterTakesTheDayAndMovesOn) {
    TrialScreen screen;
    DTPicker date(screen, "DtpDate");
    date.SetTabIndex(0);
    date.SetValue(Date(std::chrono::year(2026), std::chrono::November, std::chrono::day(20)));
    screen.First.SetTabIndex(1);
    screen.Show();
    EnterMovesOn(screen);
    screen.LogKeys = true;
    screen.Taken();
    ScreenDriver driver(screen);

    driver.Press(Qt::ALT | Qt::Key_Down);
    QDateEdit& edit = dynamic_cast<QDateEdit&>(date.Widget());
    ASSERT_TRUE(WaitFor([&] { return QApplication::activePopupWidget() != nullptr; }));
    screen.Taken();
    driver.Press(Qt::Key_Right).Press(Qt::Key_Return);

    EXPECT_EQ((Events{"KeyDown 39 0", "KeyDown 13 0", "Enter handled", "KeyDown 9 0",
                      "Validate DtpDate", "LostFocus DtpDate", "GotFocus First"}),
              screen.Taken());
    EXPECT_EQ("21/11/2026", ShownDate(date.Value()));
    EXPECT_FALSE(edit.calendarWidget()->isVisible());
}

TEST_F(ScreenKeys, AfterABoxInValidateLeaveNoButtonHeldDown) {
    int clicks = 0;
    screen.BtnGo.Click = [&] { ++clicks; };
    screen.First.Validate = [] {
        const VisitBox visit([](QDialog& box) { PressIn(box, Qt::Key_Return); });
        MsgBox({.text = "Text", .title = "Title"});
    };
    driver.Click(screen.BtnGo);
    EXPECT_EQ("BtnGo", screen.ActiveControlName());
    EXPECT_EQ(0, clicks);
    EXPECT_FALSE(dynamic_cast<QAbstractButton&>(screen.BtnGo.Widget()).isDown());
    driver.Click(screen.BtnGo);
    EXPECT_EQ(1, clicks);
}

} // namespace
} // namespace Quillane::Testing
