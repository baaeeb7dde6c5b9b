#pragma once

#include "platform/comm/LockName.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <memory>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace Quillane::Testing {

/// A serial line without a cable: what is written here can be read at Device().
class PseudoTerminal {
public:
    PseudoTerminal() {
        // One whose name is in use stays open until another is found: its number is taken.
        std::vector<int> inUse;
        for (Open(); !(name_ = LockName::Claim(device_)); Open())
            inUse.insert(inUse.end(), {indicator_, observer_});
        for (int& descriptor : inUse)
            Close(descriptor);
        termios raw{};
        tcgetattr(observer_, &raw);
        cfmakeraw(&raw);
        tcsetattr(observer_, TCSANOW, &raw);
    }
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::string& Device() const { return device_; }

    /// At most 4,000 bytes may be unread. Returns when they can be read.
    void Write(std::string_view bytes) {
        const int before = Unread();
        ASSERT_EQ(write(indicator_, bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (Unread() < before + static_cast<int>(bytes.size())) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << "the bytes do not arrive";
            std::this_thread::yield();
        }
    }

    /// Bytes that the system holds for whoever reads.
    int Unread() const {
        int count = 0;
        ioctl(observer_, FIONREAD, &count);
        return count;
    }

    void HangUp() {
        Close(indicator_);
        Close(observer_);
    }

private:
    void Open() {
        char name[128] = {};
        if (openpty(&indicator_, &observer_, name, nullptr, nullptr) != 0)
            throw std::runtime_error("no pseudo-terminal");
        device_ = name;
    }
    static void Close(int& descriptor) {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }

    int indicator_ = -1;
    int observer_ = -1;
    std::string device_;
    std::unique_ptr<LockName> name_;
};

} // namespace Quillane::Testing
