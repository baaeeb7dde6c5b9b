#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Buttons.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class CommandButtonTest : public testing::Test {
protected:
    CommandButtonTest() {
        screen.Show();
        screen.BtnGo.Click = [this] { ++clicks; };
        screen.BtnGo.SetFocus();
    }

    TrialScreen screen;
    ScreenDriver driver{screen};
    int clicks = 0;
};

TEST_F(CommandButtonTest, IsPressedByTheMouseSpaceAndEnter) {
    driver.Click(screen.BtnGo);
    EXPECT_EQ(1, clicks);
    driver.Press(Qt::Key_Space);
    EXPECT_EQ(2, clicks);
    driver.Press(Qt::Key_Return);
    EXPECT_EQ(3, clicks);
    driver.Press(Qt::Key_Enter);
    EXPECT_EQ(4, clicks);
}

TEST_F(CommandButtonTest, IsNotPressedByAnEnterThatTheScreenTakes) {
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Press(Qt::Key_Return);
    EXPECT_EQ(0, clicks);
}

TEST_F(CommandButtonTest, IsNotPressedWhileItIsDisabled) {
    screen.BtnGo.SetEnabled(false);
    driver.Click(screen.BtnGo);
    driver.Press(Qt::Key_Return);
    EXPECT_EQ(0, clicks);
}

// The action of a button may require that the button has the focus.
TEST_F(CommandButtonTest, IsNotPressedByAClickThatDidNotBringItTheFocus) {
    screen.First.SetFocus();
    screen.First.Validate = [this] { screen.First.SetFocus(); };
    driver.Click(screen.BtnGo);
    EXPECT_EQ(0, clicks);
    driver.DoubleClick(screen.BtnGo.Widget(), QPoint(5, 5));
    EXPECT_EQ(0, clicks);
    EXPECT_EQ("First", screen.ActiveControlName());
    driver.Press(Qt::ALT | Qt::Key_G);
    EXPECT_EQ(0, clicks);
    screen.First.Validate = nullptr;
    driver.Click(screen.BtnGo);
    EXPECT_EQ(1, clicks);
}

TEST_F(CommandButtonTest, IsPressedByItsFunctionKeyWithoutModifiers) {
    screen.BtnGo.SetFunctionKey(Key::F9);
    screen.First.SetFocus();
    driver.Press(Qt::CTRL | Qt::Key_F9).Press(Qt::SHIFT | Qt::Key_F9).Press(Qt::ALT | Qt::Key_F9);
    driver.Press(Qt::Key_F8);
    EXPECT_EQ(0, clicks);
    driver.Press(Qt::Key_F9);
    EXPECT_EQ(1, clicks);
    EXPECT_EQ("BtnGo", screen.ActiveControlName());
}

TEST_F(CommandButtonTest, IsNotPressedByItsFunctionKeyIfDisabledOrIfTheScreenTakesTheKey) {
    screen.BtnGo.SetFunctionKey(Key::F9);
    screen.BtnGo.SetEnabled(false);
    driver.Press(Qt::Key_F9);
    screen.BtnGo.SetEnabled(true);
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Press(Qt::Key_F9);
    EXPECT_EQ(0, clicks);
}

TEST_F(CommandButtonTest, MayDisableItselfInItsClick) {
    screen.BtnGo.Click = [this] {
        ++clicks;
        screen.BtnGo.SetEnabled(false);
    };
    driver.Press(Qt::Key_Return);
    EXPECT_EQ(1, clicks);
    EXPECT_EQ("First", screen.ActiveControlName());
}

TEST_F(CommandButtonTest, MayUnloadItsScreenInItsClick) {
    screen.BtnGo.Click = [this] { screen.Unload(); };
    driver.Click(screen.BtnGo);
    EXPECT_FALSE(screen.IsLoaded());
    screen.Show();
    screen.BtnGo.SetFocus();
    driver.Press(Qt::Key_Return);
    EXPECT_FALSE(screen.IsLoaded());
}

TEST_F(CommandButtonTest, OfThePictureKindReportsItsType) {
    EXPECT_EQ("JeweledButton", JeweledButton(screen, "BtnSave", "Save").TypeName());
}

} // namespace
} // namespace Quillane::Testing
