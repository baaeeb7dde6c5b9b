#pragma once

#include <string>
#include <vector>

namespace Quillane {

/// What the command line asks for.
struct CommandLine {
    std::string station; ///< the folder that --station names; empty: it names none
    std::string answer;  ///< what --help or --version writes instead of a start; empty: a start
    std::string fault;   ///< what is wrong with the arguments; empty: nothing
};

/// Reads the arguments, the program's name being the first. Runs without an application, so that
/// --help and --version need no display. The options of the toolkit are a fault here: an
/// application takes them off the arguments.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

} // namespace Quillane
