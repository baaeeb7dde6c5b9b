#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Buttons.h"
#include "support/ScreenDriver.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class CheckBoxTest : public testing::Test {
protected:
    CheckBoxTest() {
        screen.layout()->addWidget(&box.Widget());
        screen.Show();
        box.Click = [this] { clicks.push_back(box.Value()); };
    }

    TrialScreen screen;
    CheckBox box{screen, "ChkManualWeight", "Manual Weight"};
    ScreenDriver driver{screen};
    std::vector<int> clicks;
};

TEST_F(CheckBoxTest, ClicksWhenTheOperatorChangesIt) {
    driver.Click(box.Widget(), QPoint(8, box.Widget().height() / 2));
    driver.Press(Qt::Key_Space);
    EXPECT_EQ((std::vector<int>{1, 0}), clicks);
    EXPECT_EQ("ChkManualWeight", screen.ActiveControlName());
}

TEST_F(CheckBoxTest, ClicksWhenCodeChangesItAndNotOtherwise) {
    box.SetValue(0);
    box.SetValue(1);
    box.SetValue(1);
    box.SetValue(0);
    EXPECT_EQ((std::vector<int>{1, 0}), clicks);
}

} // namespace
} // namespace Quillane::Testing
