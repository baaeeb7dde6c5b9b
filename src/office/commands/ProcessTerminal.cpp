#include "office/commands/Commands.h"

#include "platform/runtime/Failure.h"

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

/// Keeps the terminal from showing what is typed, for as long as it lives.
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
                      "The standard input ended before the password. Please give it a line.");
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

} // namespace

Terminal ProcessTerminal() {
    return {.in = std::cin,
            .out = std::cout,
            .err = std::cerr,
            .password = ReadPassword,
            .confirm = Confirm};
}

} // namespace Quillane::Office
