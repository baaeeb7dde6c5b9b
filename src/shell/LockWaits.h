#pragma once

#include "platform/ado/LockWait.h"

#include <memory>

namespace Quillane {

/// Creates the wait for the lock of an embedded database. After the start it shows the hourglass
/// and ends after 30 seconds. During the start there is no screen yet: a window is shown until the
/// lock is free or the user cancels.
std::unique_ptr<LockWait> WaitForLock();

/// Marks the start of the program: `WaitForLock` shows its window while such an object exists.
class StartOfStation {
public:
    StartOfStation();
    ~StartOfStation();
    StartOfStation(const StartOfStation&) = delete;
    StartOfStation& operator=(const StartOfStation&) = delete;
};

} // namespace Quillane
