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

/// Waits, with events running, until a condition holds; false if the deadline came first.
bool WaitFor(const std::function<bool()>& condition,
             std::chrono::milliseconds deadline = std::chrono::seconds(5));

/// Whether the display's server can send keys. A case that needs it has "OnDisplay" in the name of
/// its suite, so that it is not registered off screen; started there by hand, it fails.
testing::AssertionResult HasDisplay();

/// Works a shown screen as an operator does. Keys and clicks enter where those of the window system
/// enter, so popups take their keys, a modal screen blocks those below it, and the screen sees each
/// key first. A screen must be shown (Show, or inside VisitModal) before it is driven.
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
    /// Presses at one point of a widget, moves point by point and lets go at another.
    ScreenDriver& Drag(QWidget& widget, QPoint from, QPoint to);

    /// The control of this name; an unknown name fails the test.
    VisualControl& Named(std::string_view name);

private:
    Screen& screen_;
};

/// Acts inside the next modal screen that comes up, once it is shown:
///
///     VisitModal visit([](Screen& screen) { ScreenDriver(screen).Press(Qt::Key_Escape); });
///     BtnOpen.Click();
///
/// A screen that the visit leaves open is unloaded, and fails the test; so does a visit that never
/// took place.
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

/// Lets real boxes come up while it stands, and acts inside the next one, once it is shown. A box
/// that the act leaves open is closed, and fails the test; so does a visit that never took place.
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

/// Presses and releases a key in any window, as the window system does.
void PressIn(QWidget& window, QKeyCombination key);

/// Shows a screen modally, acts inside it and returns when it has been unloaded.
void RunModal(Screen& screen, std::function<void(Screen&)> act, Screen* owner = nullptr);

} // namespace Quillane::Testing
