#include "shell/LockWaits.h"

#include "platform/forms/dialogs/DialogLook.h"
#include "platform/forms/dialogs/LockScreen.h"

#include <thread>

namespace Quillane {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds step{20};
constexpr milliseconds longestDuringWork{30'000};

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

} // namespace

StartOfStation::StartOfStation() {
    isStarting = true;
}

StartOfStation::~StartOfStation() {
    isStarting = false;
}

std::unique_ptr<LockWait> WaitForLock() {
    if (isStarting)
        return WaitWithLockScreen("The start continues");
    return std::make_unique<WaitDuringWork>();
}

} // namespace Quillane
