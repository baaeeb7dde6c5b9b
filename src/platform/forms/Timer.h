#pragma once

#include "platform/forms/Control.h"

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

private:
    friend class Screen;
    struct Clock;
    std::unique_ptr<Clock> clock_;
};

} // namespace Quillane
