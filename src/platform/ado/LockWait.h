#pragma once

#include <chrono>

namespace Quillane {

/// A wait for whoever holds the lock of an embedded database's file. It is made when a statement
/// finds the lock held, and goes when the statement goes on or is given up.
class LockWait {
public:
    virtual ~LockWait() = default;
    /// Lets a moment pass. False gives the statement up: it fails as locked.
    virtual bool GoOn(std::chrono::milliseconds waited) = 0;
};

} // namespace Quillane
