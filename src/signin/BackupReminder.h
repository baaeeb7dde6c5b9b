#pragma once

#include <chrono>
#include <string>

namespace Quillane {

/// What the sign-in says where the last good backup of the database in the station's folder is
/// older than so many days, or where there is none; empty where all is well, and for 0 days.
std::string BackupReminder(const std::string& stationFolder, int days,
                           std::chrono::system_clock::time_point now);

} // namespace Quillane
