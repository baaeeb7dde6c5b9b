#pragma once

#include "office/daybook/Sums.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillane::Office {

/// The day book that is asked for. Its file is the request's.
struct DayBookRequest {
    ArrivalFilter filter{};
    std::optional<SumsBy> sums{}; ///< in place of the arrivals
    bool isWorkbook = false;      ///< --xlsx; else --csv
};

/// The server that a station is moved to; texts that are not given are empty.
struct MoveRequest {
    std::string server{};
    std::string port{};
    std::string database{};
    std::string user{}; ///< the station's sign-in
    std::string options{};
};

/// What the command line asks of the office.
struct Request {
    enum class Act {
        Window,
        Help,
        Version,
        Import,
        Export,
        AddUser,
        ResetPassword,
        DayBook,
        RegisterDriver,
        Backup,
        Restore,
        Move
    };

    Act act = Act::Window;    ///< without a command the window opens
    std::string table{};      ///< of an import or export, as it was typed
    std::string file{};       ///< that is read or written; "-" is the terminal
    std::string user{};       ///< who is added or gets a new password
    std::string place{};      ///< of a driver: "system" or "user"
    std::int32_t level = 2;   ///< of a new user
    DayBookRequest dayBook{}; ///< of a day book
    MoveRequest move{};       ///< of a move to a server
    std::string folder{};     ///< of a backup; empty: as Station.ini says
    int keep = 0;             ///< backups that stay; 0: as Station.ini says
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
