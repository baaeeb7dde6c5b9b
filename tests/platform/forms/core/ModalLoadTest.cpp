// While a modal screen loads and lets events run, the screens below take nothing.

#include "platform/forms/TrialScreen.h"
#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class ModalScreenThatLoads : public testing::Test {
protected:
    ModalScreenThatLoads() {
        below.Show();
        below.BtnGo.Click = [this] { ++clicks; };
        below.Taken();
    }

    void ShowAbove() {
        RunModal(
            above, [](Screen& shown) { shown.Unload(); }, &below);
    }

    TrialScreen below;
    TrialScreen above{"Above"};
    ScreenDriver driver{below};
    int clicks = 0;
};

TEST_F(ModalScreenThatLoads, ScreenBelowAcceptsNoPress) {
    above.OnLoad = [this] {
        driver.Click(below.BtnGo).Click(below.Third).DoubleClick(below.BtnGo.Widget(), {5, 5});
        above.DoEvents();
    };
    ShowAbove();
    EXPECT_EQ(0, clicks);
    EXPECT_EQ(Events{}, below.Taken());
    driver.Click(below.BtnGo);
    EXPECT_EQ(1, clicks);
}

TEST_F(ModalScreenThatLoads, ScreenBelowCannotBeClosed) {
    above.OnLoad = [this] {
        below.close();
        above.DoEvents();
    };
    ShowAbove();
    EXPECT_TRUE(below.IsLoaded());
    EXPECT_EQ(Events{}, below.Taken());
    below.close();
    EXPECT_FALSE(below.IsLoaded());
}

TEST_F(ModalScreenThatLoads, TwoPressesOpenItOnce) {
    int opened = 0;
    below.BtnGo.Click = [this, &opened] {
        ++opened;
        ShowAbove();
    };
    above.OnLoad = [this] { driver.Click(below.BtnGo); };
    driver.Click(below.BtnGo);
    EXPECT_EQ(1, opened);
}

TEST_F(ModalScreenThatLoads, ScreenBelowAcceptsPressesAfterAFailure) {
    above.OnLoad = [] { Fail(FailureNumber::TypeMismatch); };
    EXPECT_EQ(FailureNumber::TypeMismatch, FailureNumberOf([this] { above.ShowModal(&below); }));
    driver.Click(below.BtnGo);
    EXPECT_EQ(1, clicks);
}

} // namespace
} // namespace Quillane::Testing
