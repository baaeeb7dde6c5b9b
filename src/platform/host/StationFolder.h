#pragma once

#include <string>

namespace Quillane {

/// The folder of this station, absolute and without a separator at its end: `Config.ini`,
/// `Station.ini` and embedded databases lie there. The program's `main` sets it, before anything
/// asks for it.
std::string StationFolder();
void SetStationFolder(std::string folder);

/// Where a station's folder may be named, and where it may lie. An empty text names none.
struct StationFolderSources {
    std::string option;   ///< the program's option --station
    std::string variable; ///< the environment variable QUILLANE_STATION
    std::string program;  ///< the folder of the executable
    std::string system;   ///< the folder that the system keeps for the station
};

/// Those of this process; the option is what the command line gave.
StationFolderSources SourcesOfThisProcess(std::string option);

/// The option's folder; else the variable's; else the program's where it holds a `Config.ini`; else
/// the system's. A relative path counts from the working folder.
std::string ChooseStationFolder(const StationFolderSources& sources);

/// Fails (75) where the folder is missing, is no folder, or may not be entered by this user.
void CheckStationFolder(const std::string& folder);

} // namespace Quillane
