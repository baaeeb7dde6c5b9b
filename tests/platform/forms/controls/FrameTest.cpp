#include "platform/forms/TrialScreen.h"
#include "platform/forms/controls/Buttons.h"

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

TEST(Frame, HidesAndDisablesTheControlsInIt) {
    TrialScreen screen;
    screen.Show();
    EXPECT_TRUE(screen.InFrame.Widget().isVisible());
    screen.Around.SetVisible(false);
    EXPECT_FALSE(screen.InFrame.Widget().isVisible());
    screen.Around.SetVisible(true);
    screen.Around.SetEnabled(false);
    EXPECT_FALSE(screen.InFrame.Widget().isEnabled());
}

TEST(Frame, MayBeDestroyedBeforeTheControlsInIt) {
    TrialScreen screen;
    TextBox inside(screen, "Inside");
    {
        Frame frame(screen, "Frame", "");
        inside.Widget().setParent(&frame.Widget());
    }
    inside.SetText("still there");
    EXPECT_EQ("still there", inside.Text());
}

} // namespace
} // namespace Quillane::Testing
