#pragma once

#include <string>

namespace Quillane {

/// The lock file by which a program keeps a serial device for itself. It is in a folder of the
/// whole system, where a user may as a rule delete only files of his own.
struct LineLock {
    enum class State {
        None,      ///< there is none
        InUse,     ///< of a process that runs
        Left,      ///< of a process that has ended
        Unreadable ///< of another user, who keeps others from reading it
    };

    State state = State::None;
    std::string file{};
};

/// The lock of a device, by the path under which it is opened.
LineLock ReadLineLock(const std::string& device);

/// Deletes the lock of a process that has ended. False where it stays: this user may not delete it,
/// or another process has just taken it.
bool RemoveLeftLock(const LineLock& lock);

} // namespace Quillane
