#include "shell/LockWaits.h"

#include "platform/forms/dialogs/DialogLook.h"
#include "shell/LockScreen.h"

#include <QEventLoop>
#include <QTimer>

#include <optional>
#include <thread>

namespace Quillane {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds step{20};
constexpr milliseconds longestDuringWork{30'000};
/// A shorter wait shows no window, so that none flashes up.
constexpr milliseconds untilWindow{400};

bool isStarting = false;

class WaitDuringWork : public LockWait {
public:
    bool GoOn(milliseconds waited) override {
        if (waited >= longestDuringWork)
            return false;
        std::this_thread::sleep_for(step);
        return true;
    }

private:
    Hourglass hourglass_;
};

class WaitDuringStart : public LockWait {
public:
    bool GoOn(milliseconds waited) override {
        if (waited < untilWindow) {
            std::this_thread::sleep_for(step);
            return true;
        }
        if (!window_)
            Open();
        LetEventsPass();
        return !window_->IsCancelled;
    }

private:
    void Open() {
        hourglass_.reset();
        window_ = std::make_unique<LockScreen>();
        window_->Show();
    }

    static void LetEventsPass() {
        QEventLoop loop;
        QTimer::singleShot(step, &loop, &QEventLoop::quit);
        loop.exec();
    }

    std::optional<Hourglass> hourglass_{std::in_place};
    std::unique_ptr<LockScreen> window_;
};

} // namespace

StartOfStation::StartOfStation() {
    isStarting = true;
}

StartOfStation::~StartOfStation() {
    isStarting = false;
}

std::unique_ptr<LockWait> WaitForLock() {
    if (isStarting)
        return std::make_unique<WaitDuringStart>();
    return std::make_unique<WaitDuringWork>();
}

} // namespace Quillane
