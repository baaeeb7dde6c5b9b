#pragma once

#include "office/daybook/Sums.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Quillane::Office {

/// The arguments of --day-book; the file is a member of Request.
struct DayBookRequest {
    ArrivalFilter filter{};
    std::optional<SumsBy> sums{}; ///< instead of the arrivals
    bool isWorkbook = false;      ///< --xlsx; else --csv
};

/// The arguments of --move-to-server; texts that are not given are empty.
struct MoveRequest {
    std::string server{};
    std::string port{};
    std::string database{};
    std::string user{}; ///< the login of the station
    std::string options{};
};

/// The parsed command line.
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
    std::string table{};      ///< for import and export, as typed
    std::string file{};       ///< to read or write; "-" is standard input or output
    std::string user{};       ///< the user to add, or whose password is replaced
    std::string driverFor{};  ///< for RegisterDriver: "system" or "user"
    std::int32_t level = 2;   ///< for AddUser
    DayBookRequest dayBook{}; ///< for DayBook
    MoveRequest move{};       ///< for Move
    std::string folder{};     ///< for Backup; empty: from Station.ini
    int keep = 0;             ///< number of backups to keep; 0: from Station.ini
    bool isConfirmed = false; ///< --yes
    bool skipsFaulty = false; ///< --skip-faulty
    std::string station{};    ///< the station folder; empty: the default
    std::string signIn{};     ///< login for the database server; empty: from Config.ini
    std::string fault{};      ///< an error in the arguments; empty: none
};

/// Parses the arguments. The first one is the name of the program.
Request ReadArguments(const std::vector<std::string>& arguments);

/// The text of --help.
std::string HelpText();

} // namespace Quillane::Office
