#include "platform/forms/core/ScreenLook.h"

#include "platform/forms/TrialScreen.h"

#include <QScreen>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

TEST(SmallDisplay, IsOneOfFewLogicalPixels) {
    EXPECT_TRUE(IsSmallDisplay({640, 400})) << "1280 x 800 at a scale of 2";
    EXPECT_TRUE(IsSmallDisplay({899, 1000}));
    EXPECT_TRUE(IsSmallDisplay({1000, 639}));
    EXPECT_FALSE(IsSmallDisplay({900, 640}));
    EXPECT_FALSE(IsSmallDisplay({1280, 720})) << "1920 x 1080 at a scale of 1.5";
}

TEST(ScreenLook, FollowsTheDisplayOfTheWindow) {
    TrialScreen screen;
    const QSize available = screen.screen()->availableSize();
    EXPECT_EQ(OnSmallDisplay(screen), IsSmallDisplay(available));
    EXPECT_EQ(LargestWindow(screen), available - QSize(8, 40));
    SetLetterSize(screen);
    EXPECT_EQ(screen.font().pointSize(), LetterSize(screen));
    EXPECT_EQ(ButtonSize(screen), OnSmallDisplay(screen) ? QSize(84, 32) : QSize(104, 40));
}

} // namespace
} // namespace Quillane::Testing
