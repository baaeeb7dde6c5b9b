// Reports of the display's server on the active window that arrive late.

#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qwindowsysteminterface.h>

namespace Quillane::Testing {
namespace {

/// As the display's server reports it: queued, and handled with the next events.
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

// The key that closed it was received before the report, and handled first.
TEST_F(LateActivation, OfAClosedScreenDoesNotMakeItActive) {
    Activate(above);
    EXPECT_TRUE(screen.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &screen.First.Widget());
}

} // namespace
} // namespace Quillane::Testing
