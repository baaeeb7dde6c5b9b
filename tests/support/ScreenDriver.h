#pragma once

#include "platform/forms/core/Screen.h"

#include <QPoint>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace Quillane::Testing {

/// Processes events until a condition holds; false after the deadline.
bool WaitFor(const std::function<bool()>& condition,
             std::chrono::milliseconds deadline = std::chrono::seconds(5));

/// True if the display server can send keys. A case that needs this has "OnDisplay" in the name of
/// its suite, so that it is not registered off screen. If it is started there by hand, it fails.
testing::AssertionResult HasDisplay();

/// Operates a shown screen. Keys and clicks are sent like those of the window system, so popups
/// take their keys, a modal screen blocks those below it, and the screen gets each key first.
/// Requires: the screen is shown (Show, or inside VisitModal).
class ScreenDriver {
public:
    explicit ScreenDriver(Screen& screen);

    /// Presses and releases a key: Press(Qt::Key_Tab), Press(Qt::CTRL | Qt::Key_S).
    ScreenDriver& Press(QKeyCombination key);
    ScreenDriver& Press(Qt::Key key) { return Press(QKeyCombination(key)); }
    /// Types each character of an ASCII text.
    ScreenDriver& Type(std::string_view text);
    /// Commits a text as an input method does.
    ScreenDriver& Commit(std::string_view text);

    /// Clicks in the middle of a control, or at a point of a widget.
    ScreenDriver& Click(VisualControl& control);
    ScreenDriver& Click(QWidget& widget, QPoint point);
    ScreenDriver& DoubleClick(QWidget& widget, QPoint point);
    /// Presses at one point of a widget, moves point by point and releases at another.
    ScreenDriver& Drag(QWidget& widget, QPoint from, QPoint to);

    /// The control with this name; an unknown name fails the test.
    VisualControl& Named(std::string_view name);

private:
    Screen& screen_;
};

/// Runs an action in the next modal screen, when it is shown:
///
///     VisitModal visit([](Screen& screen) { ScreenDriver(screen).Press(Qt::Key_Escape); });
///     BtnOpen.Click();
///
/// A screen that is still open after the action is unloaded and fails the test. The test also fails
/// if no screen was shown.
class VisitModal {
public:
    explicit VisitModal(std::function<void(Screen&)> act);
    ~VisitModal();
    VisitModal(const VisitModal&) = delete;
    VisitModal& operator=(const VisitModal&) = delete;

    bool TookPlace() const { return tookPlace_; }

private:
    void Look();

    std::function<void(Screen&)> act_;
    QTimer timer_;
    QWidget* below_;
    bool tookPlace_ = false;
};

/// Allows real message boxes and runs an action in the next one, when it is shown. A box that is
/// still open after the action is closed and fails the test. The test also fails if no box was
/// shown.
class VisitBox {
public:
    explicit VisitBox(std::function<void(QDialog&)> act);
    ~VisitBox();
    VisitBox(const VisitBox&) = delete;
    VisitBox& operator=(const VisitBox&) = delete;

private:
    static QDialog* ShownBox();
    void Look();

    std::function<void(QDialog&)> act_;
    QTimer timer_;
    bool tookPlace_ = false;
};

/// Presses and releases a key in any window, like the window system.
void PressIn(QWidget& window, QKeyCombination key);

/// Shows a modal screen, runs an action in it, and returns when it has been unloaded.
void RunModal(Screen& screen, std::function<void(Screen&)> act, Screen* owner = nullptr);

} // namespace Quillane::Testing
