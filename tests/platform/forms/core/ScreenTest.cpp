#include "platform/forms/core/Screen.h"

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Application.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/runtime/Failure.h"
#include "support/ScreenDriver.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

TEST(Screen, LoadsOnceBeforeItIsShown) {
    TrialScreen screen;
    screen.OnLoad = [&] {
        EXPECT_FALSE(screen.isVisible());
        EXPECT_EQ(nullptr, screen.ActiveControl());
    };
    screen.Load();
    screen.Load();
    screen.Show();
    EXPECT_EQ((Events{"Form_Load", "GotFocus First"}), screen.Taken());
    EXPECT_TRUE(screen.isVisible());
}

TEST(Screen, GivesNoControlTheFocusBeforeItIsShown) {
    TrialScreen screen;
    int failure = 0;
    screen.OnLoad = [&] {
        try {
            screen.Second.SetFocus();
        } catch (const Failure& error) {
            failure = error.Number();
        }
    };
    screen.Show();
    EXPECT_EQ(FailureNumber::InvalidCall, failure);
    EXPECT_EQ("First", screen.ActiveControlName());
}

TEST(Screen, IsVisibleAtItsFirstGotFocus) {
    TrialScreen screen;
    bool visible = false;
    screen.First.GotFocus = [&] { visible = screen.isVisible(); };
    screen.Show();
    EXPECT_TRUE(visible);
}

TEST(Screen, FailureOfItsLoadReachesTheCaller) {
    TrialScreen screen;
    screen.OnLoad = [] { Fail(FailureNumber::TypeMismatch); };
    EXPECT_THROW(screen.ShowModal(), Failure);
    EXPECT_FALSE(screen.IsLoaded());
    EXPECT_FALSE(screen.isVisible());
    screen.OnLoad = {};
    screen.Show();
    EXPECT_TRUE(screen.IsLoaded());
}

TEST(Screen, LoadsAgainAfterAnUnload) {
    TrialScreen screen;
    screen.Show();
    screen.Third.SetFocus();
    EXPECT_TRUE(screen.Unload());
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ("", screen.ActiveControlName());
    screen.Taken();
    screen.Show();
    EXPECT_EQ((Events{"Form_Load", "GotFocus First"}), screen.Taken());
}

TEST(Screen, StaysOpenIfItsUnloadIsCancelled) {
    TrialScreen screen;
    screen.OnUnload = [](bool& cancel) { cancel = true; };
    screen.Show();
    EXPECT_FALSE(screen.Unload());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.IsLoaded());
}

TEST(Screen, CloseBoxAndRejectionUnloadIt) {
    TrialScreen screen;
    screen.Show();
    EXPECT_TRUE(screen.close());
    EXPECT_EQ("Form_Unload", screen.Taken().back());
    screen.Show();
    static_cast<QDialog&>(screen).reject();
    EXPECT_EQ("Form_Unload", screen.Taken().back());
    EXPECT_FALSE(screen.IsLoaded());
}

TEST(Screen, UnloadInsideItsUnloadDoesNothing) {
    TrialScreen screen;
    screen.Show();
    screen.OnUnload = [&](bool&) { EXPECT_FALSE(screen.Unload()); };
    screen.Taken();
    EXPECT_TRUE(screen.Unload());
    EXPECT_EQ((Events{"Form_Unload"}), screen.Taken());
}

TEST(Screen, ModalShowingReturnsWhenItIsUnloaded) {
    TrialScreen screen;
    bool unloaded = false;
    screen.OnUnload = [&](bool&) { unloaded = true; };
    RunModal(screen, [](Screen& shown) {
        EXPECT_TRUE(shown.isModal());
        shown.Unload();
    });
    EXPECT_TRUE(unloaded);
}

TEST(Screen, MayUnloadItselfWhileItLoads) {
    TrialScreen screen;
    screen.OnLoad = [&] { screen.Unload(); };
    screen.ShowModal();
    EXPECT_FALSE(screen.isVisible());
}

TEST(Screen, MayUnloadItselfInItsFirstGotFocus) {
    TrialScreen screen;
    screen.First.GotFocus = [&] { screen.Unload(); };
    screen.ShowModal();
    EXPECT_FALSE(screen.IsLoaded());
}

TEST(Screen, LetsPendingEventsRun) {
    TrialScreen screen;
    screen.Show();
    bool ran = false;
    QMetaObject::invokeMethod(
        &screen, [&] { ran = true; }, Qt::QueuedConnection);
    screen.DoEvents();
    EXPECT_TRUE(ran);
    QMetaObject::invokeMethod(
        &screen, [&] { screen.Unload(); }, Qt::QueuedConnection);
    EXPECT_THROW(screen.DoEvents(), ScreenGone);
}

TEST(Screen, ListsItsControlsInTheOrderOfDeclaration) {
    TrialScreen screen;
    Events names;
    for (const Control* control : screen.Controls())
        names.push_back(control->Name() + " " + control->TypeName());
    EXPECT_EQ((Events{"Third TextBox", "First TextBox", "Second TextBox", "Around Frame",
                      "InFrame TextBox", "BtnGo CommandButton"}),
              names);
}

TEST(Screen, OpensInTheMiddleOfTheDisplayWithNeitherMaximiseNorMinimise) {
    TrialScreen screen;
    screen.Show();
    // The frame's width is not known before the screen is shown.
    const QPoint off = screen.geometry().center() - screen.screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 8);
    EXPECT_FALSE(screen.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_FALSE(screen.windowFlags() & Qt::WindowMinimizeButtonHint);
    EXPECT_TRUE(screen.windowFlags() & Qt::WindowCloseButtonHint);
}

TEST(Screen, OpensMaximisedIfItIsSet) {
    TrialScreen screen;
    screen.SetOpensMaximized();
    screen.Show();
    EXPECT_TRUE(screen.isMaximized());
}

TEST(Screen, ShowsTheFocusAsForKeyboardUse) {
    TrialScreen screen;
    screen.First.SetText("text");
    screen.Show();
    ASSERT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
    EXPECT_TRUE(screen.testAttribute(Qt::WA_KeyboardFocusChange));
    EXPECT_EQ("", screen.First.SelectedText());
    screen.Unload();
    screen.Show();
    EXPECT_EQ("", screen.First.SelectedText());
    ScreenDriver(screen).Click(screen.BtnGo);
    EXPECT_TRUE(screen.testAttribute(Qt::WA_KeyboardFocusChange));
}

/// Two boxes far from each other, on a screen that is too small to show both.
class ScrolledScreen : public Screen {
public:
    ScrolledScreen() : Screen("Scrolled", "Scrolled") {
        auto* content = new QWidget;
        auto* column = new QVBoxLayout(content);
        column->addWidget(&Upper.Widget());
        column->addSpacing(600);
        column->addWidget(&Lower.Widget());
        auto* area = new QScrollArea(this);
        area->setFocusPolicy(Qt::NoFocus);
        area->setWidget(content);
        (new QVBoxLayout(this))->addWidget(area);
        Upper.SetTabIndex(0);
        Lower.SetTabIndex(1);
        resize(300, 200);
    }
    TextBox Upper{*this, "Upper"};
    TextBox Lower{*this, "Lower"};
};

bool IsSeenWhole(VisualControl& control) {
    return control.Widget().visibleRegion() == QRegion(control.Widget().rect());
}

TEST(Screen, ScrollsTheActiveControlIntoView) {
    ScrolledScreen screen;
    screen.Show();
    ScreenDriver driver(screen);
    EXPECT_TRUE(IsSeenWhole(screen.Upper));
    driver.Press(Qt::Key_Tab);
    EXPECT_TRUE(IsSeenWhole(screen.Lower));
    driver.Press(Qt::Key_Backtab);
    EXPECT_TRUE(IsSeenWhole(screen.Upper));
    screen.Lower.SetFocus();
    EXPECT_TRUE(IsSeenWhole(screen.Lower));
}

TEST(Screen, DoesNotScrollDuringAPressOfTheMouse) {
    ScrolledScreen screen;
    screen.Show();
    screen.Lower.SetFocus();
    auto& bar = *screen.findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(bar.minimum() + screen.Upper.Widget().y() + 10);
    ScreenDriver(screen).Click(screen.Upper.Widget(), QPoint(20, 15));
    EXPECT_EQ("Upper", screen.ActiveControlName());
    EXPECT_FALSE(IsSeenWhole(screen.Upper));
}

TEST(Screen, MayBeDestroyedWhileItIsShown) {
    {
        TrialScreen screen;
        screen.Show();
        WaitFor([&] { return screen.isActiveWindow(); });
        screen.First.LostFocus = [] { ADD_FAILURE() << "destroying the screen runs no LostFocus"; };
    }
    QCoreApplication::processEvents();
}

} // namespace
} // namespace Quillane::Testing
