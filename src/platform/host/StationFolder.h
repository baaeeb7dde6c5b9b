#pragma once

#include <string>

namespace Quillane {

/// The folder that holds `Config.ini`, `Station.ini` and embedded databases; an absolute path
/// without a separator at its end. Requires: `main` has called `SetStationFolder`.
std::string StationFolder();
void SetStationFolder(std::string folder);

/// The places that can name the station folder, and its default locations. Empty: not given.
struct StationFolderSources {
    std::string option;   ///< the program's option --station
    std::string variable; ///< the environment variable QUILLANE_STATION
    std::string program;  ///< the folder of the executable
    std::string system;   ///< the default folder of the operating system
};

/// Reads them for this process. `option` is the value of --station, or empty.
StationFolderSources SourcesOfThisProcess(std::string option);

/// Chooses the first of these: the option's folder, the variable's folder, the program's folder if
/// it holds a `Config.ini`, the system's folder. Relative paths start at the working folder.
std::string ChooseStationFolder(const StationFolderSources& sources);

/// Errors: path access (75) if the folder does not exist, is not a folder, or cannot be opened by
/// this user.
void CheckStationFolder(const std::string& folder);

} // namespace Quillane
