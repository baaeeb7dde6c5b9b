#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace Quillane {

/// Notes the last good backup in the file `LastBackup` of the station's folder: its time (UTC) and
/// its file. Fails (75) where it cannot be written.
void WriteBackupRecord(const std::string& stationFolder, std::chrono::system_clock::time_point time,
                       const std::string& file);

/// The time of the last good backup; empty where none is noted, or the note cannot be read.
std::optional<std::chrono::system_clock::time_point>
ReadBackupRecord(const std::string& stationFolder);

} // namespace Quillane
