#include "platform/forms/controls/ComboBox.h"

#include "platform/forms/TrialScreen.h"
#include "platform/runtime/Failure.h"
#include "support/ScreenDriver.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

class ComboBoxTest : public testing::Test {
protected:
    ComboBoxTest() {
        screen.layout()->addWidget(&box.Widget());
        box.Click = [this] { clicks.push_back(box.Text()); };
        screen.Show();
    }

    TrialScreen screen;
    ComboBox box{screen, "CboRate", {"2400", "4800 ", "9600"}};
    ScreenDriver driver{screen};
    Events clicks;
};

TEST_F(ComboBoxTest, StartsWithNothingSelected) {
    EXPECT_EQ(-1, box.ListIndex());
    EXPECT_EQ("", box.Text());
    EXPECT_EQ(3, box.ListCount());
}

TEST_F(ComboBoxTest, ClicksWhenAnotherEntryBecomesSelected) {
    box.SetListIndex(0);
    box.SetListIndex(0);
    box.SetText("4800 ");
    EXPECT_EQ((Events{"2400", "4800 "}), clicks);
    EXPECT_EQ(1, box.ListIndex());
    box.SetFocus();
    driver.Press(Qt::Key_Down);
    EXPECT_EQ("9600", clicks.back());
}

TEST_F(ComboBoxTest, FailsOnATextThatIsNotListed) {
    box.SetListIndex(2);
    EXPECT_THROW(box.SetText("4800"), Failure);
    EXPECT_THROW(box.SetListIndex(3), Failure);
    EXPECT_EQ("9600", box.Text());
}

TEST_F(ComboBoxTest, ChoosesOnEnterInItsOpenListAndLeavesTheScreenItsKeys) {
    box.SetListIndex(0);
    box.SetFocus();
    auto& combo = dynamic_cast<QComboBox&>(box.Widget());
    combo.showPopup();
    ASSERT_TRUE(WaitFor([&] { return combo.view()->isVisible(); }));
    screen.LogKeys = true;
    screen.Taken();
    driver.Press(Qt::Key_Down).Press(Qt::Key_Return);
    EXPECT_EQ("4800 ", box.Text());
    EXPECT_EQ("KeyDown 40 0", screen.Taken().front());
}

} // namespace
} // namespace Quillane::Testing
