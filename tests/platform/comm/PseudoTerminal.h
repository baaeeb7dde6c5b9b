#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace Quillane::Testing {

/// A serial line without a cable: what is written here can be read at Device().
class PseudoTerminal {
public:
    PseudoTerminal() {
        char name[128] = {};
        EXPECT_EQ(openpty(&indicator_, &observer_, name, nullptr, nullptr), 0);
        device_ = name;
        termios raw{};
        tcgetattr(observer_, &raw);
        cfmakeraw(&raw);
        tcsetattr(observer_, TCSANOW, &raw);
    }
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::string& Device() const { return device_; }

    /// At most 4,000 bytes may stand unread. Returns when they can be read.
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
    static void Close(int& descriptor) {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = -1;
    }

    int indicator_ = -1;
    int observer_ = -1;
    std::string device_;
};

} // namespace Quillane::Testing
