#include "platform/forms/core/Timer.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/EventBoundary.h"

#include <QTimer>

#include <algorithm>
#include <vector>

namespace Quillane {

class Timer::Clock {
public:
    explicit Clock(const std::function<void()>& tick) : tick_(tick) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Ring(); });
        All().push_back(this);
    }
    ~Clock() { std::erase(All(), this); }
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    static std::vector<Clock*>& All() {
        static std::vector<Clock*> clocks;
        return clocks;
    }

    void Restart() {
        if (enabled && loaded && interval > 0)
            timer_.start(interval);
        else
            timer_.stop();
    }

    int interval = 0;
    bool enabled = false;
    bool loaded = false;

private:
    // A timer that is restarted in its own tick would tick again inside a box that the tick shows.
    void Ring() {
        if (ticking_ || BoxIsUp())
            return;
        ticking_ = true;
        RunEvent([this] {
            if (tick_)
                tick_();
        });
        ticking_ = false;
    }

    const std::function<void()>& tick_;
    QTimer timer_;
    bool ticking_ = false;
};

Timer::Timer(Screen& screen, std::string name, int interval, bool enabled)
    : Control(screen, std::move(name), "Timer"), clock_(std::make_unique<Clock>(Tick)) {
    clock_->interval = interval;
    clock_->enabled = enabled;
}

Timer::~Timer() = default;

int Timer::Interval() const {
    return clock_->interval;
}

void Timer::SetInterval(int milliseconds) {
    clock_->interval = milliseconds;
    clock_->Restart();
}

bool Timer::Enabled() const {
    return clock_->enabled;
}

void Timer::SetEnabled(bool enabled) {
    if (clock_->enabled != enabled) {
        clock_->enabled = enabled;
        clock_->Restart();
    }
}

void Timer::RestartAll() {
    for (Clock* clock : Clock::All())
        clock->Restart();
}

void Timer::ScreenIsLoaded(bool loaded) {
    clock_->loaded = loaded;
    clock_->Restart();
}

} // namespace Quillane
