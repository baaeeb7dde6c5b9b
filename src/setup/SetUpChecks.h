#pragma once

#include <string>

namespace Quillane {

struct StationFile;

/// What is looked at before the form of the set-up is shown, so that nobody fills it in for
/// nothing.

/// Fails (75) where this user cannot store a database and its files in the station's folder: for
/// want of rights, or because the disk is full or can only be read.
void CheckFolderTakesFiles(const std::string& folder);

/// The station's ports that cannot be opened as they are, each with the reason, a line for each.
/// Empty where all can. A station without the indicator can be set up all the same.
std::string PortFaults(const StationFile& station);

} // namespace Quillane
