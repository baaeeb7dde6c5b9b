#include "shell/LockWaits.h"

#include "data/Con.h"
#include "platform/forms/core/Pointer.h"
#include "platform/forms/core/ShownScreens.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace Quillane {
namespace {

using std::chrono::milliseconds;
using Testing::ScreenDriver;

LockScreen* Window() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* screen = dynamic_cast<LockScreen*>(window); screen && screen->isVisible())
            return screen;
    return nullptr;
}

TEST(WaitDuringWork, HourglassIsShownImmediately) {
    {
        const auto wait = WaitForLock();
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Hourglass);
        EXPECT_TRUE(wait->GoOn(milliseconds(0)));
        EXPECT_EQ(Window(), nullptr);
    }
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST(WaitDuringWork, EarlierHourglassIsKept) {
    SetMousePointer(MousePointer::Hourglass);
    WaitForLock().reset();
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Hourglass);
    SetMousePointer(MousePointer::Default);
}

TEST(WaitDuringWork, EndsAfterThirtySeconds) {
    const auto wait = WaitForLock();
    EXPECT_TRUE(wait->GoOn(milliseconds(29'999)));
    EXPECT_FALSE(wait->GoOn(milliseconds(30'000)));
}

TEST(WaitDuringStart, WindowIsShownAfterADelay) {
    const StartOfStation start;
    {
        const auto wait = WaitForLock();
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Hourglass);
        EXPECT_TRUE(wait->GoOn(milliseconds(0)));
        EXPECT_EQ(Window(), nullptr);
        EXPECT_TRUE(wait->GoOn(milliseconds(400)));
        ASSERT_NE(Window(), nullptr);
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
        EXPECT_TRUE(wait->GoOn(std::chrono::hours(1))) << "without a time limit";
    }
    EXPECT_EQ(Window(), nullptr);
    EXPECT_TRUE(ShownScreens().empty());
}

TEST(WaitDuringStart, OtherWindowsAreNotPaintedDuringTheWait) {
    const StartOfStation start;
    QWidget other;
    other.show();
    {
        const auto wait = WaitForLock();
        EXPECT_TRUE(wait->GoOn(milliseconds(0)));
        EXPECT_TRUE(other.updatesEnabled());
        EXPECT_FALSE(IsLockScreenShown());
        EXPECT_TRUE(wait->GoOn(milliseconds(400)));
        EXPECT_FALSE(other.updatesEnabled());
        EXPECT_TRUE(Window()->updatesEnabled());
        EXPECT_TRUE(IsLockScreenShown());
    }
    EXPECT_TRUE(other.updatesEnabled());
    EXPECT_FALSE(IsLockScreenShown());
}

TEST(WaitDuringStart, EscButtonAndCloseCancelButKeysTypedAheadDoNot) {
    const StartOfStation start;
    const std::function<void(LockScreen&)> ways[] = {
        [](LockScreen& window) { ScreenDriver(window).Press(Qt::Key_Escape); },
        [](LockScreen& window) { ScreenDriver(window).Click(window.BtnCancel); },
        [](LockScreen& window) { ScreenDriver(window).Press(Qt::ALT | Qt::Key_C); },
        [](LockScreen& window) { window.close(); }};
    for (const auto& way : ways) {
        const auto wait = WaitForLock();
        EXPECT_TRUE(wait->GoOn(milliseconds(400)));
        ASSERT_NE(Window(), nullptr);
        ScreenDriver(*Window()).Press(Qt::Key_Return).Press(Qt::Key_Space).Type("ali");
        EXPECT_TRUE(wait->GoOn(milliseconds(450)));
        way(*Window());
        EXPECT_FALSE(wait->GoOn(milliseconds(500)));
    }
}

TEST(WaitDuringStart, EndsWithTheStart) {
    { const StartOfStation start; }
    const auto wait = WaitForLock();
    wait->GoOn(milliseconds(400));
    EXPECT_EQ(Window(), nullptr);
}

} // namespace
} // namespace Quillane
