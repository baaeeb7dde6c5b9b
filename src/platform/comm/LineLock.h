#pragma once

#include <string>

namespace Quillane {

/// The lock file of a serial device. It is in a system folder where users can usually delete only
/// their own files.
struct LineLock {
    enum class State {
        None,      ///< no lock file
        InUse,     ///< its process is running
        Left,      ///< its process has ended
        Unreadable ///< it belongs to another user, and this user may not read it
    };

    State state = State::None;
    std::string file{};
};

/// Reads the lock of a device. Requires: `device` is the path under which the device is opened.
LineLock ReadLineLock(const std::string& device);

/// Deletes the lock of a process that has ended. Returns false if this user may not delete it, or
/// if another process has just acquired it.
bool RemoveLeftLock(const LineLock& lock);

} // namespace Quillane
