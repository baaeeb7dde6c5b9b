// Late reports of the display server about the active window.

#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qwindowsysteminterface.h>

namespace Quillane::Testing {
namespace {

/// Reports it as the display server does: queued, and handled with the next events.
void Activate(const QWidget& window) {
    QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::AsynchronousDelivery>(
        window.windowHandle());
    QCoreApplication::processEvents();
}

class LateActivation : public testing::Test {
protected:
    LateActivation() {
        screen.Show();
        EXPECT_TRUE(WaitFor([this] { return screen.isActiveWindow(); }));
        RunModal(
            above, [](Screen& shown) { shown.Unload(); }, &screen);
        EXPECT_TRUE(WaitFor([this] { return screen.isActiveWindow(); }));
    }

    TrialScreen screen;
    TrialScreen above{"Above"};
};

// The key that closed the screen was received before the report, and is handled first.
TEST_F(LateActivation, OfAClosedScreenDoesNotMakeItActive) {
    Activate(above);
    EXPECT_TRUE(screen.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &screen.First.Widget());
}

// Such as the main window of the office.
TEST(Activation, WindowThatIsNoScreenIsActiveAgainAfterAModalScreen) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(WaitFor([&] { return window.isActiveWindow(); }));
    TrialScreen above{"Above"};
    RunModal(above, [&](Screen& shown) {
        EXPECT_EQ(shown.windowHandle()->transientParent(), window.windowHandle());
        shown.Unload();
    });
    EXPECT_TRUE(WaitFor([&] { return window.isActiveWindow(); }));
}

} // namespace
} // namespace Quillane::Testing
