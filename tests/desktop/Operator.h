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

/// How long a condition is waited for, also on a busy machine.
inline constexpr std::chrono::seconds Patience{60};

/// What was waited for did not come.
struct Missed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Somebody at the station: hands on the keyboard and the mouse, which go through the display's
/// server, and eyes on the screens. Works in another thread than the program, so that a test reads
/// in order, also across boxes and modal screens. Nothing is waited for by time: each look is
/// repeated until it shows what it should, or Missed is thrown.
class Operator {
public:
    explicit Operator(const BoxWatch& boxes) : boxes_(boxes) {}

    // Hands. Each first waits until the window in front has the keyboard.
    /// Presses keys one after the other, by their X names: "Return", "ctrl+s".
    void Press(const QStringList& keys);
    void Type(const std::string& text);
    /// Types and clicks in one go, without a look in between; arguments of xdotool.
    void WithoutLooking(const QStringList& arguments);
    void Click(VisualControl& control);
    void Click(QWidget& widget, const std::function<QPoint()>& place);
    /// Clicks in the middle of a control and waits until it has the focus.
    void ClickInto(VisualControl& control);
    /// Clicks at a point of the display.
    void ClickAt(QPoint point);
    void DoubleClickAt(QPoint point);
    /// Where a point of a widget is on the display, for the mouse.
    QPoint OnDisplay(const QWidget& widget, QPoint place) const;

    // Eyes.
    /// The window in front has the keyboard, also as the display's server sees it.
    void UntilKeyboardIsReady();
    /// Looks at the program: runs in its thread, between its events.
    template <typename Look>
    auto See(Look look) const -> std::invoke_result_t<Look>;
    void Until(const std::string& what, const std::function<bool()>& condition) const;
    /// On the modal screen in front, which without another is the weighment.
    void UntilActive(const std::string& control) const;
    /// The shown screen of a kind; fails where there is none.
    template <typename Kind>
    Kind& Shown() const;
    void UntilInFront(const std::string& title) const;
    /// Keeps a picture of the display in the folder that QUILLANE_PICTURES names, if it names one.
    void Picture(const std::string& name) const;

    // Boxes.
    /// Waits for the next box, which must be this one.
    void ExpectBox(const std::string& title, const std::string& text);
    /// The same; presses the keys and waits until the box is gone.
    void Answer(const std::string& title, const std::string& text, const QStringList& keys);

    /// Acts again and again until the condition holds, and closes each box of the line that comes
    /// between by Enter.
    void PastLineBoxes(const std::function<void()>& act, const std::string& what,
                       const std::function<bool()>& condition);
    /// All boxes so far are dealt with: the next one counts.
    void ForgetBoxes();

    // The station.
    void SignIn(const std::string& name, const std::string& password);
    /// From the start screen, by Enter.
    FrmWeighment& OpenWeighment();
    /// The shown weighment screen; fails where there is none.
    FrmWeighment& Weighment() const;
    void UntilReading(int kilograms) const;

    /// Closes whatever is up, so that a test that failed ends.
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
