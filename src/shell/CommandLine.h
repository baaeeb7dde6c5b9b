#pragma once

#include <string>
#include <vector>

namespace Quillane {

/// The parsed command line.
struct CommandLine {
    std::string station; ///< the value of --station; empty if it is not given
    std::string answer;  ///< the output of --help or --version; empty if the program is to start
    std::string fault;   ///< the error in the arguments; empty if they are valid
};

/// Parses the arguments; the first one is the name of the program. Needs no QApplication, so that
/// --help and --version work without a display. The options of Qt are reported as an error here,
/// because a QApplication removes its own options from the arguments.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

} // namespace Quillane
