#pragma once

#include "platform/forms/core/Control.h"

#include <functional>
#include <memory>

namespace Quillane {

/// Ticks on the screen's thread while its screen is loaded.
///
/// While a box is up no timer ticks, and each starts a full interval anew afterwards, so that an
/// operator always has a moment between two boxes. Timers go on under a modal screen. A timer never
/// re-enters its own tick, also when the tick sets `Enabled` or `Interval`, and a screen closed
/// while a tick lets pending events run ends that tick.
class Timer : public Control {
public:
    Timer(Screen& screen, std::string name, int interval, bool enabled = true);
    ~Timer() override;

    int Interval() const;
    void SetInterval(int milliseconds);
    bool Enabled() const;
    void SetEnabled(bool enabled);

    std::function<void()> Tick;

    /// Starts every running timer's interval anew, as the last box closes.
    static void RestartAll();

private:
    friend class Screen;
    class Clock;
    void ScreenIsLoaded(bool loaded);
    std::unique_ptr<Clock> clock_;
};

} // namespace Quillane
