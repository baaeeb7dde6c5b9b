#pragma once

#include <chrono>

namespace Quillane {

/// A wait for the lock of an embedded database's file. It is created when a statement finds the
/// file locked, and destroyed when the statement continues or fails.
class LockWait {
public:
    virtual ~LockWait() = default;
    /// Waits a moment. Returns false if the wait is cancelled: the statement then fails as locked.
    virtual bool GoOn(std::chrono::milliseconds waited) = 0;
};

} // namespace Quillane
