#pragma once

#include "platform/ado/LockWait.h"

#include <memory>

namespace Quillane {

/// How the program waits for whoever holds the lock of an embedded database. During work the
/// hourglass is shown from the first moment on, and half a minute is the most. During the start no
/// screen is there yet: a window says what is waited for, as long as it takes, and can cancel it.
std::unique_ptr<LockWait> WaitForLock();

/// The start, as long as it lives.
class StartOfStation {
public:
    StartOfStation();
    ~StartOfStation();
    StartOfStation(const StartOfStation&) = delete;
    StartOfStation& operator=(const StartOfStation&) = delete;
};

} // namespace Quillane
