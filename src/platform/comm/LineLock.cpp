#include "platform/comm/LineLock.h"

#ifndef _WIN32
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Quillane {

#ifdef _WIN32

// Windows itself limits a device to one program.
LineLock ReadLineLock(const std::string&) {
    return {};
}

bool RemoveLeftLock(const LineLock&) {
    return false;
}

#else

namespace {

/// The lock file that Qt uses: in the first of its folders that contains it or is writable.
std::string LockFile(const std::string& device) {
    std::string name = device.starts_with("/dev/") ? device.substr(5) : device;
    std::replace(name.begin(), name.end(), '/', '_');
    for (const char* folder : {"/var/lock", "/etc/locks", "/var/spool/locks", "/var/spool/uucp",
                               "/tmp", "/var/tmp", "/var/lock/lockdev", "/run/lock"}) {
        const std::string file = std::string(folder) + "/LCK.." + name;
        const bool isThere = ::access(file.c_str(), F_OK) == 0;
        if (::access(folder, R_OK) == 0 && (isThere || ::access(folder, W_OK) == 0))
            return file;
    }
    return {};
}

/// An open file that is locked by this process if possible. Qt locks its file in the same way while
/// it has the device open.
class LockedFile {
public:
    explicit LockedFile(const std::string& path)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
          isMine_(file_ >= 0 && ::flock(file_, LOCK_EX | LOCK_NB) == 0) {}
    ~LockedFile() {
        if (file_ >= 0)
            ::close(file_);
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool IsOpen() const { return file_ >= 0; }
    bool IsMine() const { return isMine_; }
    bool IsStillAt(const std::string& path) const {
        struct stat mine {
        }, there{};
        return ::fstat(file_, &mine) == 0 && ::stat(path.c_str(), &there) == 0 &&
               mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
    }

private:
    int file_;
    bool isMine_;
};

/// The kernel truncates process names to this length.
constexpr std::size_t lengthOfProcessName = 15;

bool Runs(pid_t process, const std::string& name) {
    if (::kill(process, 0) != 0 && errno != EPERM)
        return false;
    std::string found;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), found);
    // Process numbers are reused, so the name must agree too.
    return name.empty() || found.empty() || found == name.substr(0, lengthOfProcessName);
}

/// The first line of a lock file is the process number; Qt adds a second line with the name of the
/// program.
bool NamesRunningProcess(const std::string& file) {
    std::ifstream lock(file);
    std::string number, name;
    std::getline(lock, number);
    std::getline(lock, name);
    const long process = std::strtol(number.c_str(), nullptr, 10);
    return process > 0 && Runs(static_cast<pid_t>(process), name);
}

} // namespace

LineLock ReadLineLock(const std::string& device) {
    const std::string file = LockFile(device);
    if (file.empty() || ::access(file.c_str(), F_OK) != 0)
        return {};
    const LockedFile locked(file);
    if (!locked.IsOpen())
        return {LineLock::State::Unreadable, file};
    const bool isInUse = !locked.IsMine() || NamesRunningProcess(file);
    return {isInUse ? LineLock::State::InUse : LineLock::State::Left, file};
}

bool RemoveLeftLock(const LineLock& lock) {
    const LockedFile locked(lock.file);
    return locked.IsMine() && locked.IsStillAt(lock.file) && ::unlink(lock.file.c_str()) == 0;
}

#endif

} // namespace Quillane
