#pragma once

#include "platform/forms/core/Control.h"

#include <functional>
#include <memory>

namespace Quillane {

/// Ticks on the screen's thread while its screen is loaded.
///
/// While a box is shown no timer ticks, and each restarts its full interval afterwards, so that the
/// operator has time between two boxes. Timers continue below a modal screen. A timer never
/// re-enters its own tick, also if the tick sets `Enabled` or `Interval`. If a tick lets pending
/// events run and they close the screen, the tick ends.
class Timer : public Control {
public:
    Timer(Screen& screen, std::string name, int interval, bool enabled = true);
    ~Timer() override;

    int Interval() const;
    void SetInterval(int milliseconds);
    bool Enabled() const;
    void SetEnabled(bool enabled);

    std::function<void()> Tick;

    /// Restarts the interval of every running timer. Called when the last box closes.
    static void RestartAll();

private:
    friend class Screen;
    class Clock;
    void ScreenIsLoaded(bool loaded);
    std::unique_ptr<Clock> clock_;
};

} // namespace Quillane
