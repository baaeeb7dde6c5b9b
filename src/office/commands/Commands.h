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
    Cancelled = 5
};

using LongTask = std::function<void(LongWork& work)>;

/// Input and output of a command.
struct Terminal {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    /// Asks for a password without showing it.
    std::function<std::string(const std::string& prompt)> password;
    /// Asks for confirmation; false if there is no terminal.
    std::function<bool(const std::string& question)> confirm;
    HashCost hashCost = HashCost::Interactive;
    /// Runs a long operation, shows its progress, and cancels it on request. Rethrows its
    /// exception.
    std::function<void(const LongTask& task)> runLong{};
};

/// The terminal of this process. Without a terminal, passwords are read from lines of the standard
/// input.
Terminal ProcessTerminal();

/// Runs a command on an open connection; failures are thrown.
ExitCode RunCommand(Connection& connection, const Request& request, Terminal& terminal);

} // namespace Quillane::Office
