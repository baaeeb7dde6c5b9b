#pragma once

#include <string>

namespace Quillane {

struct StationFile;

/// Checks before the set-up dialog is shown, so that it is not filled in to no effect.

/// Errors: path access (75) if this user cannot write files of the size of a database in the
/// station folder: missing rights, a full disk or a read-only disk.
void CheckFolderTakesFiles(const std::string& folder);

/// Lists the serial ports of the station that cannot be opened now, with the reason, one in each
/// line. Empty if all can be opened. The station can be set up nevertheless.
std::string PortFaults(const StationFile& station);

} // namespace Quillane
