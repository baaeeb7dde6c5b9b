#include "office/commands/Commands.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"

#include <array>
#include <chrono>
#include <csignal>
#include <future>
#include <iostream>

#ifndef _WIN32
#include <termios.h>
#include <unistd.h>
#endif

namespace Quillane::Office {

namespace {

bool IsTyped() {
#ifdef _WIN32
    return false;
#else
    return ::isatty(STDIN_FILENO) == 1;
#endif
}

/// Turns off the echo of the terminal during its lifetime.
class HiddenTyping {
public:
#ifndef _WIN32
    HiddenTyping() {
        ::tcgetattr(STDIN_FILENO, &before_);
        termios hidden = before_;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenTyping() {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    }
    HiddenTyping(const HiddenTyping&) = delete;
    HiddenTyping& operator=(const HiddenTyping&) = delete;

private:
    termios before_{};
#endif
};

std::string ReadLine() {
    std::string line;
    if (!std::getline(std::cin, line))
        throw Failure(FailureNumber::InputPastEnd,
                      "The standard input contains no password. Pass it as a line.");
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

std::string ReadPassword(const std::string& prompt) {
    if (!IsTyped())
        return ReadLine();
    std::cerr << prompt << std::flush;
    const HiddenTyping hidden;
    const std::string password = ReadLine();
    std::cerr << "\n";
    return password;
}

bool Confirm(const std::string& question) {
    if (!IsTyped())
        return false;
    std::cerr << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

LongWork* runningWork = nullptr;

void CancelWork(int) {
    runningWork->Cancel();
}

/// Ctrl+C and a termination signal cancel the operation during the lifetime of this object.
class Signals {
public:
    explicit Signals(LongWork& work) {
        runningWork = &work;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            before_[i] = std::signal(numbers[i], CancelWork);
    }
    ~Signals() {
        for (std::size_t i = 0; i < numbers.size(); ++i)
            std::signal(numbers[i], before_[i]);
        runningWork = nullptr;
    }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

private:
    static constexpr std::array numbers{SIGINT, SIGTERM};
    std::array<void (*)(int), numbers.size()> before_{};
};

bool IsShown() {
#ifdef _WIN32
    return false;
#else
    return ::isatty(STDERR_FILENO) == 1;
#endif
}

/// Overwrites its line. The blanks cover the rest of a longer previous text.
void ShowProgress(const LongWork& work) {
    std::cerr << "\r" << work.Step();
    if (work.Parts() > 0)
        std::cerr << ": " << 100LL * work.Done() / work.Parts() << " %";
    std::cerr << "      " << std::flush;
}

void RunLong(const LongTask& task) {
    constexpr std::chrono::milliseconds betweenLooks{200};
    LongWork work;
    const Signals cancelling(work);
    std::future<void> end = std::async(std::launch::async, [&] { task(work); });
    bool hasShown = false;
    while (IsShown() && end.wait_for(betweenLooks) != std::future_status::ready) {
        ShowProgress(work);
        hasShown = true;
    }
    end.wait();
    if (hasShown)
        std::cerr << "\n";
    end.get();
}

} // namespace

Terminal ProcessTerminal() {
    return {.in = std::cin,
            .out = std::cout,
            .err = std::cerr,
            .password = ReadPassword,
            .confirm = Confirm,
            .runLong = RunLong};
}

} // namespace Quillane::Office
