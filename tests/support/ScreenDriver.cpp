#include "support/ScreenDriver.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "support/BoxAnswers.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <stdexcept>

namespace Quillane::Testing {

bool WaitFor(const std::function<bool()>& condition, std::chrono::milliseconds deadline) {
    const QDeadlineTimer end(deadline);
    bool late = false;
    while (!condition()) {
        if (late)
            return false;
        // Checked before the events: the process may be delayed between the check and the clock.
        late = end.hasExpired();
        // Waits for the next event, at most this long.
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::qSleep(1);
    }
    return true;
}

testing::AssertionResult HasDisplay() {
    if (QGuiApplication::platformName() == "xcb")
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "This case needs a display: start it with with-x.sh.";
}

void PressIn(QWidget& window, QKeyCombination key) {
    const bool back = key.key() == Qt::Key_Tab && key.keyboardModifiers() & Qt::ShiftModifier;
    QTest::keyClick(window.windowHandle(), back ? Qt::Key_Backtab : key.key(),
                    key.keyboardModifiers());
}

ScreenDriver::ScreenDriver(Screen& screen) : screen_(screen) {}

ScreenDriver& ScreenDriver::Press(QKeyCombination key) {
    if (!screen_.isVisible()) {
        ADD_FAILURE() << "A key for the screen " << screen_.Name() << ", which is not shown";
        return *this;
    }
    PressIn(screen_, key);
    return *this;
}

ScreenDriver& ScreenDriver::Type(std::string_view text) {
    for (const char character : text)
        QTest::keyClick(screen_.windowHandle(), character);
    return *this;
}

ScreenDriver& ScreenDriver::Commit(std::string_view text) {
    QInputMethodEvent event;
    event.setCommitString(ToQt(text));
    VisualControl* active = screen_.ActiveControl();
    QCoreApplication::sendEvent(active ? &active->FocusWidget() : &screen_, &event);
    return *this;
}

ScreenDriver& ScreenDriver::Click(VisualControl& control) {
    return Click(control.Widget(), control.Widget().rect().center());
}

ScreenDriver& ScreenDriver::Click(QWidget& widget, QPoint point) {
    QWindow* window = widget.window()->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, widget.mapTo(widget.window(), point));
    return *this;
}

ScreenDriver& ScreenDriver::DoubleClick(QWidget& widget, QPoint point) {
    QWindow* window = widget.window()->windowHandle();
    QTest::mouseDClick(window, Qt::LeftButton, {}, widget.mapTo(widget.window(), point));
    return *this;
}

ScreenDriver& ScreenDriver::Drag(QWidget& widget, QPoint from, QPoint to) {
    QWindow* window = widget.window()->windowHandle();
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    const int steps = std::max((to - from).manhattanLength(), 1);
    QTest::mousePress(window, Qt::LeftButton, {}, corner + from);
    for (int step = 1; step <= steps; ++step)
        QTest::mouseMove(window, corner + from + (to - from) * step / steps);
    QTest::mouseRelease(window, Qt::LeftButton, {}, corner + to);
    return *this;
}

VisualControl& ScreenDriver::Named(std::string_view name) {
    for (Control* control : screen_.Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control); visual && visual->Name() == name)
            return *visual;
    throw std::out_of_range("No control named " + std::string(name));
}

VisitModal::VisitModal(std::function<void(Screen&)> act)
    : act_(std::move(act)), below_(QApplication::activeModalWidget()) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

VisitModal::~VisitModal() {
    EXPECT_TRUE(tookPlace_) << "No modal screen was shown";
}

void VisitModal::Look() {
    QWidget* modal = QApplication::activeModalWidget();
    auto* screen = modal != below_ ? dynamic_cast<Screen*>(modal) : nullptr;
    if (!screen || !screen->isVisible())
        return;
    timer_.stop();
    tookPlace_ = true;
    act_(*screen);
    if (screen->IsLoaded() && screen->isVisible()) {
        ADD_FAILURE() << "The screen " << screen->Name() << " was left open";
        screen->Unload();
    }
}

VisitBox::VisitBox(std::function<void(QDialog&)> act) : act_(std::move(act)) {
    SetBoxPresenter({});
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    timer_.start(1);
}

VisitBox::~VisitBox() {
    ForbidUnexpectedBoxes();
    EXPECT_TRUE(tookPlace_) << "No box was shown";
}

// If another program is active, the box is not modal.
QDialog* VisitBox::ShownBox() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog && dialog->isVisible() && !dynamic_cast<Screen*>(dialog))
            return dialog;
    }
    return nullptr;
}

void VisitBox::Look() {
    QDialog* box = BoxIsUp() ? ShownBox() : nullptr;
    if (!box)
        return;
    timer_.stop();
    tookPlace_ = true;
    const QPointer<QDialog> guard = box;
    act_(*box);
    if (guard && guard->isVisible()) {
        ADD_FAILURE() << "The box \"" << FromQt(guard->windowTitle()) << "\" was left open";
        guard->reject();
    }
}

void RunModal(Screen& screen, std::function<void(Screen&)> act, Screen* owner) {
    VisitModal visit(std::move(act));
    screen.ShowModal(owner);
}

} // namespace Quillane::Testing
