#pragma once

#include "BoxWatch.h"
#include "weighment/FrmWeighment.h"

#include <QApplication>
#include <QPoint>
#include <QStringList>
#include <QWidget>

#include <chrono>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace Quillane::Testing {

/// How long to wait for a condition, also on a busy machine.
inline constexpr std::chrono::seconds Patience{60};

/// A condition was not fulfilled in time.
struct Missed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An operator at the station, who uses the keyboard and the mouse through the display server and
/// looks at the screens. It works in another thread than the program, so that a test reads in
/// order, also across boxes and modal screens. No wait is for a fixed time: each look is repeated
/// until it shows the expected state, or Missed is thrown.
class Operator {
public:
    explicit Operator(const BoxWatch& boxes) : boxes_(boxes) {}

    // Input. Each function first waits until the window in front has the keyboard.
    /// Presses keys one after the other, by their X names: "Return", "ctrl+s".
    void Press(const QStringList& keys);
    void Type(const std::string& text);
    /// Types and clicks without a look in between; arguments of xdotool.
    void WithoutLooking(const QStringList& arguments);
    void Click(VisualControl& control);
    void Click(QWidget& widget, const std::function<QPoint()>& place);
    /// Clicks in the middle of a control and waits until it has the focus.
    void ClickInto(VisualControl& control);
    /// Clicks at a point of the display.
    void ClickAt(QPoint point);
    void DoubleClickAt(QPoint point);
    /// The position of a point of a widget on the display, for the mouse.
    QPoint OnDisplay(const QWidget& widget, QPoint place) const;

    // Output.
    /// Waits until the window in front has the keyboard, also according to the display server.
    void UntilKeyboardIsReady();
    /// Reads the state of the program: runs in its thread, between its events.
    template <typename Look>
    auto See(Look look) const -> std::invoke_result_t<Look>;
    void Until(const std::string& what, const std::function<bool()>& condition) const;
    /// Refers to the modal screen in front; without one, to the weighment screen.
    void UntilActive(const std::string& control) const;
    /// The shown screen of a kind. Errors: there is none.
    template <typename Kind>
    Kind& Shown() const;
    void UntilInFront(const std::string& title) const;
    /// Saves a picture of the display in the folder QUILLANE_PICTURES, if that is set.
    void Picture(const std::string& name) const;

    // Boxes.
    /// Waits for the next box, which must be this one.
    void ExpectBox(const std::string& title, const std::string& text);
    /// The same; then presses the keys and waits until the box is closed.
    void Answer(const std::string& title, const std::string& text, const QStringList& keys);

    /// Repeats an action until the condition holds, and closes by Enter each box of the line that
    /// is shown in between.
    void PastLineBoxes(const std::function<void()>& act, const std::string& what,
                       const std::function<bool()>& condition);
    /// Ignores all boxes so far: the next wait is for the next box.
    void ForgetBoxes();

    // The station.
    void SignIn(const std::string& name, const std::string& password);
    /// From the start screen, by Enter.
    FrmWeighment& OpenWeighment();
    /// The shown weighment screen. Errors: there is none.
    FrmWeighment& Weighment() const;
    void UntilReading(int kilograms) const;

    /// Closes all screens and boxes, so that a failed test ends.
    void CloseEverything() const;

private:
    std::string WhatIsSeen() const;
    static void RunInProgram(const std::function<void()>& look);

    const BoxWatch& boxes_;
    std::size_t answered_ = 0;
    WId keyboard_ = 0; ///< the window that last had the keyboard
};

template <typename Look>
auto Operator::See(Look look) const -> std::invoke_result_t<Look> {
    using Result = std::invoke_result_t<Look>;
    if constexpr (std::is_void_v<Result>) {
        RunInProgram(look);
    } else if constexpr (std::is_reference_v<Result>) {
        std::remove_reference_t<Result>* seen = nullptr;
        RunInProgram([&] { seen = &look(); });
        return *seen;
    } else {
        Result seen{};
        RunInProgram([&] { seen = look(); });
        return seen;
    }
}

template <typename Kind>
Kind& Operator::Shown() const {
    return See([this]() -> Kind& {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* screen = dynamic_cast<Kind*>(window); screen && screen->isVisible())
                return *screen;
        throw Missed("no such screen is shown; " + WhatIsSeen());
    });
}

} // namespace Quillane::Testing
