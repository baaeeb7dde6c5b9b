#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Buttons.h"
#include "support/ScreenDriver.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class OptionButtonTest : public testing::Test {
protected:
    OptionButtonTest() {
        for (OptionButton* option : {&white, &printed}) {
            screen.Around.Widget().layout()->addWidget(&option->Widget());
            option->Click = [this, option] { clicks.push_back(option->Name()); };
        }
        screen.Show();
    }

    TrialScreen screen;
    OptionButton white{screen, "OptWhitePage", "Print on white paper"};
    OptionButton printed{screen, "OptPrintedPaper", "Print on printed paper"};
    ScreenDriver driver{screen};
    Events clicks;
};

TEST_F(OptionButtonTest, ClicksWhenItBecomesSelectedAndNotOtherwise) {
    EXPECT_FALSE(white.Value());
    EXPECT_FALSE(printed.Value());
    white.SetValue(true);
    white.SetValue(true);
    printed.SetValue(true);
    EXPECT_EQ((Events{"OptWhitePage", "OptPrintedPaper"}), clicks);
    EXPECT_FALSE(white.Value());
    printed.SetValue(false);
    EXPECT_FALSE(printed.Value());
    EXPECT_EQ(2u, clicks.size());
}

TEST_F(OptionButtonTest, ClicksForTheOperator) {
    driver.Click(printed.Widget(), QPoint(8, printed.Widget().height() / 2));
    driver.Press(Qt::Key_Up);
    driver.Press(Qt::Key_Up);
    driver.Press(Qt::Key_Down);
    EXPECT_EQ((Events{"OptPrintedPaper", "OptWhitePage", "OptPrintedPaper"}), clicks);
    EXPECT_EQ("OptPrintedPaper", screen.ActiveControlName());
}

} // namespace
} // namespace Quillane::Testing
