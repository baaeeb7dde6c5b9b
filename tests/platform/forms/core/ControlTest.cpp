#include "platform/forms/core/Control.h"

#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Label.h"

#include <QPalette>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

TEST(Control, CanTakeTheFocusIfItAndItsFramesAreVisibleAndEnabled) {
    TrialScreen screen;
    EXPECT_TRUE(screen.InFrame.CanTakeFocus());
    screen.Around.SetVisible(false);
    EXPECT_FALSE(screen.InFrame.CanTakeFocus());
    EXPECT_TRUE(screen.InFrame.Visible());
    screen.Around.SetVisible(true);
    screen.Around.SetEnabled(false);
    EXPECT_FALSE(screen.InFrame.CanTakeFocus());
    EXPECT_TRUE(screen.InFrame.Enabled());
    screen.Around.SetEnabled(true);
    EXPECT_TRUE(screen.InFrame.CanTakeFocus());
    screen.InFrame.SetEnabled(false);
    EXPECT_FALSE(screen.InFrame.CanTakeFocus());
}

TEST(Control, OfAFrameNeverTakesTheFocusItself) {
    TrialScreen screen;
    EXPECT_FALSE(screen.Around.CanTakeFocus());
    EXPECT_EQ(&screen.InFrame, screen.NextInTabOrder(&screen.Third));
}

TEST(Control, WithoutATabIndexIsReachedOnlyByCode) {
    TrialScreen screen;
    screen.Second.SetTabIndex(-1);
    EXPECT_EQ(&screen.Third, screen.NextInTabOrder(&screen.First));
    EXPECT_EQ(&screen.First, screen.NextInTabOrder(&screen.Second));
    screen.Show();
    screen.Second.SetFocus();
    EXPECT_EQ("Second", screen.ActiveControlName());
}

TEST(Control, TabOrderWrapsBothWays) {
    TrialScreen screen;
    EXPECT_EQ(&screen.First, screen.NextInTabOrder(nullptr));
    EXPECT_EQ(&screen.BtnGo, screen.NextInTabOrder(nullptr, false));
    EXPECT_EQ(&screen.First, screen.NextInTabOrder(&screen.BtnGo));
    EXPECT_EQ(&screen.BtnGo, screen.NextInTabOrder(&screen.First, false));
}

TEST(Control, ColoursHaveBlueInTheHighByte) {
    TrialScreen screen;
    screen.First.SetBackColor(0xC0FFFE);
    screen.First.SetForeColor(0x0000C0);
    EXPECT_EQ(0xC0FFFEu, screen.First.BackColor());
    EXPECT_EQ(QColor(0xFE, 0xFF, 0xC0), screen.First.Widget().palette().color(QPalette::Base));
    EXPECT_EQ(QColor(0xC0, 0x00, 0x00), screen.First.Widget().palette().color(QPalette::Text));
}

TEST(Control, HasAToolTipAndANameForAssistiveTechnology) {
    TrialScreen screen;
    screen.First.SetToolTip("Enter - next");
    screen.First.SetAccessibleName("Vehicle No");
    EXPECT_EQ("Enter - next", screen.First.ToolTip());
    EXPECT_EQ("Vehicle No", screen.First.Widget().accessibleName().toStdString());
}

TEST(Control, IsNamedByItsLabel) {
    TrialScreen screen;
    const Label label("Vehicle <No>", &screen.First.Widget());
    EXPECT_EQ("Vehicle <No>", label.text().toStdString());
    EXPECT_EQ(Qt::PlainText, label.textFormat());
    EXPECT_EQ(&screen.First.Widget(), label.buddy());
}

} // namespace
} // namespace Quillane::Testing
