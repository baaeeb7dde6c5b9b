#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillane {

/// A file system in memory that only one child process sees, for tests of full and read-only disks.
/// The superuser may always mount one, other users where the kernel has user namespaces.
struct OwnDisk {
    std::string folder; ///< where it is mounted; exists
    std::string size;   ///< as for mount: "100k", "10m"
    bool isReadOnly = false;

    /// What to do if no disk can be mounted; empty if one can.
    static std::string WhyMissing() {
        const pid_t child = ::fork();
        if (child == 0)
            std::_Exit(OwnDisk{.folder = "/tmp", .size = "100k"}.Mount() ? 0 : 1);
        int status = 0;
        if (child > 0 && ::waitpid(child, &status, 0) == child && status == 0)
            return {};
        return "This user may not mount a file system. Run the test as root, or allow user "
               "namespaces (sysctl kernel.unprivileged_userns_clone=1).";
    }

    /// Mounts the disk, calls the action and ends the process, with code 0 if every expectation of
    /// the action was met. For the child process of `EXPECT_EXIT`.
    [[noreturn]] void CallAndExit(const std::function<void()>& action) const {
        if (!Mount()) {
            std::perror("mount");
            std::_Exit(2);
        }
        const testing::TestResult& result =
            *testing::UnitTest::GetInstance()->current_test_info()->result();
        const int before = result.total_part_count();
        action();
        // The child process of a death test reports nothing itself.
        for (int i = before; i < result.total_part_count(); ++i)
            std::fprintf(stderr, "%s\n", result.GetTestPartResult(i).message());
        std::fflush(nullptr);
        std::_Exit(result.total_part_count() > before ? 1 : 0);
    }

private:
    static bool Write(const char* file, const std::string& text) {
        return static_cast<bool>(std::ofstream(file) << text << std::flush);
    }
    /// Any other user becomes root of a new user namespace, which must know the user and the group:
    /// otherwise no file can be created. See user_namespaces(7).
    static bool BecomeRoot() {
        if (::geteuid() == 0)
            return true;
        const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
        const std::string group = "0 " + std::to_string(::getegid()) + " 1";
        return ::unshare(CLONE_NEWUSER) == 0 && Write("/proc/self/uid_map", user) &&
               Write("/proc/self/setgroups", "deny") && Write("/proc/self/gid_map", group);
    }
    bool Mount() const {
        const std::string options = "size=" + size;
        // Without the private root the mount would appear in all other processes.
        return BecomeRoot() && ::unshare(CLONE_NEWNS) == 0 &&
               ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("tmpfs", folder.c_str(), "tmpfs", isReadOnly ? MS_RDONLY : 0,
                       options.c_str()) == 0;
    }
};

/// Fills the disk of a folder but for this number of bytes. Returns the file to remove.
inline std::filesystem::path FillDisk(const std::filesystem::path& folder,
                                      std::uintmax_t bytesLeft) {
    constexpr std::streamsize blockSize = 4096;
    std::filesystem::path file = folder / "rest";
    const std::string block(blockSize, 'x');
    std::uintmax_t blocks = 0;
    for (std::ofstream rest(file, std::ios::binary); rest.write(block.data(), blockSize).flush();)
        ++blocks;
    std::filesystem::resize_file(file, blocks * blockSize - bytesLeft);
    return file;
}

} // namespace Quillane
