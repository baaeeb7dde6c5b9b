#pragma once

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Quillane::Testing {

/// Reserves the lock name of a device. QSerialPort locks a device by a file with its name in a
/// system folder. The system reuses the name of a pseudo-terminal immediately, often before its
/// last user has removed that file; and containers may share the folder but have pseudo-terminals
/// with the same names. tools/indicator uses the same files.
class LockName {
public:
    /// Returns none if the name is reserved or its lock file still exists.
    static std::unique_ptr<LockName> Claim(const std::string& device) {
        std::unique_ptr<LockName> name(new LockName(device));
        // The lock file is checked after the reservation, because from then on no other process
        // creates one.
        const bool mine = name->IsMine() && access(LockFile(device).c_str(), F_OK) != 0;
        return mine ? std::move(name) : nullptr;
    }
    /// The file by which QSerialPort locks a device.
    static std::string LockFile(const std::string& device) { return File("LCK..", device); }

    LockName(const LockName&) = delete;
    LockName& operator=(const LockName&) = delete;
    ~LockName() {
        if (IsMine())
            unlink(file_.c_str());
        if (claim_ >= 0)
            close(claim_);
    }

private:
    explicit LockName(const std::string& device)
        : file_(File("claim..", device)),
          claim_(open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {}

    /// True if this process has the lock, and the previous owner has not just removed the file.
    bool IsMine() const {
        struct stat claimed {
        }, there{};
        return claim_ >= 0 && flock(claim_, LOCK_EX | LOCK_NB) == 0 &&
               fstat(claim_, &claimed) == 0 && stat(file_.c_str(), &there) == 0 &&
               claimed.st_ino == there.st_ino;
    }
    static std::string File(const std::string& kind, const std::string& device) {
        std::string name = device.starts_with("/dev/") ? device.substr(5) : device;
        std::replace(name.begin(), name.end(), '/', '_');
        return (access("/var/lock", W_OK) == 0 ? "/var/lock/" : "/tmp/") + kind + name;
    }

    std::string file_;
    int claim_;
};

} // namespace Quillane::Testing
