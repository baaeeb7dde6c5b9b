#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Quillane::Office {

/// What the command line asks of the office.
struct Request {
    enum class Act { None, Help, Version, Import, Export, AddUser, ResetPassword };

    Act act = Act::None;
    std::string table{};      ///< of an import or export, as it was typed
    std::string file{};       ///< of an import or export; "-" is the terminal
    std::string user{};       ///< who is added or gets a new password
    std::int32_t level = 2;   ///< of a new user
    bool isConfirmed = false; ///< --yes
    bool skipsFaulty = false; ///< --skip-faulty
    std::string station{};    ///< the folder of the station; empty: it is looked for
    std::string signIn{};     ///< of the database server, in place of the one in Config.ini
    std::string fault{};      ///< what is wrong with the arguments; empty: nothing
};

/// Reads the arguments, the program's name being the first.
Request ReadArguments(const std::vector<std::string>& arguments);

/// The text of --help.
std::string HelpText();

} // namespace Quillane::Office
