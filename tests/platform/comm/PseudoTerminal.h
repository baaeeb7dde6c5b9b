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

/// A simulated serial line: bytes written here can be read at Device().
class PseudoTerminal {
public:
    PseudoTerminal() {
        // A terminal with a used name stays open, so that the next one gets another number.
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
            ASSERT_LT(std::chrono::steady_clock::now(), end) << "the bytes have not arrived";
            std::this_thread::yield();
        }
    }

    /// The number of bytes in the input buffer of the system.
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
