// Mouse presses that press nothing: the focus did not move to the pressed control, or the button
// has already been released.

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Boxes.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

#include <functional>

namespace Quillane::Testing {
namespace {

class Press : public testing::Test {
protected:
    Press() {
        screen.BtnGo.Click = [this] { ++clicks; };
        screen.Show();
    }

    void ExpectNothingPressed(const char* active) {
        driver.Click(screen.BtnGo);
        EXPECT_EQ(0, clicks);
        EXPECT_FALSE(dynamic_cast<QAbstractButton&>(screen.BtnGo.Widget()).isDown());
        EXPECT_EQ(active, screen.ActiveControlName());
    }

    void ExpectTheNextIsWhole() {
        screen.First.Validate = nullptr;
        screen.First.LostFocus = nullptr;
        screen.BtnGo.GotFocus = nullptr;
        driver.Click(screen.BtnGo);
        EXPECT_EQ(1, clicks);
    }

    TrialScreen screen;
    ScreenDriver driver{screen};
    int clicks = 0;
};

TEST_F(Press, HasNoEffectIfValidationShowsABox) {
    BoxAnswers answers;
    answers.Expect(Alert("Text"));
    screen.First.Validate = [] { MsgBox(Alert("Text")); };
    ExpectNothingPressed("BtnGo");
    ExpectTheNextIsWhole();
}

TEST_F(Press, HasNoEffectIfLostFocusShowsABox) {
    BoxAnswers answers;
    answers.Expect(Alert("Text"));
    screen.First.LostFocus = [] { MsgBox(Alert("Text")); };
    ExpectNothingPressed("BtnGo");
    ExpectTheNextIsWhole();
}

TEST_F(Press, HasNoEffectIfGotFocusShowsABox) {
    BoxAnswers answers;
    answers.Expect(Alert("Text"));
    screen.BtnGo.GotFocus = [] { MsgBox(Alert("Text")); };
    ExpectNothingPressed("BtnGo");
    ExpectTheNextIsWhole();
}

TEST_F(Press, HasNoEffectIfAModalScreenIsShown) {
    TrialScreen above("Above");
    screen.First.Validate = [&] { RunModal(above, [](Screen& shown) { shown.Unload(); }); };
    ExpectNothingPressed("BtnGo");
    ExpectTheNextIsWhole();
}

// Like a list that does not contain the text typed in it.
TEST_F(Press, HasNoEffectIfTheLeftControlKeepsTheFocus) {
    screen.First.Validate = [this] { screen.First.SetFocus(); };
    ExpectNothingPressed("First");
    ExpectTheNextIsWhole();
}

// Like the box of the id if it holds the number of a stored load.
TEST_F(Press, HasNoEffectIfTheFocusMovesElsewhere) {
    screen.First.Validate = [this] { screen.Second.SetFocus(); };
    ExpectNothingPressed("Second");
    ExpectTheNextIsWhole();
}

} // namespace
} // namespace Quillane::Testing
