#pragma once

#include <chrono>
#include <string>

namespace Quillane {

/// The sign-in's message if the last good backup of the database in the station's folder is older
/// than this number of days, or if there is none; otherwise, and for 0 days, empty.
std::string BackupReminder(const std::string& stationFolder, int days,
                           std::chrono::system_clock::time_point now);

} // namespace Quillane
