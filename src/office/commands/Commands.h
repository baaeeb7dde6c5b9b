#pragma once

#include "office/commands/CommandLine.h"
#include "signin/PasswordHash.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace Quillane {
class Connection;
class LongWork;
} // namespace Quillane

namespace Quillane::Office {

enum class ExitCode {
    Done = 0,
    Failed = 1,
    WrongArguments = 2,
    Refused = 3,
    NotConfirmed = 4,
    BrokenOff = 5
};

using LongTask = std::function<void(LongWork& work)>;

/// What a command reads from and writes to.
struct Terminal {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    /// Asks for a password without showing it.
    std::function<std::string(const std::string& prompt)> password;
    /// Asks for a yes; false also where nobody can be asked.
    std::function<bool(const std::string& question)> confirm;
    HashCost hashCost = HashCost::Interactive;
    /// Runs work that takes long, shows its progress, and breaks it off where that is asked for.
    /// What it fails with is thrown here.
    std::function<void(const LongTask& task)> runLong{};
};

/// The terminal of this process. Passwords are lines of the standard input where that is none.
Terminal ProcessTerminal();

/// Runs a command on an open connection; failures are thrown.
ExitCode RunCommand(Connection& connection, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
