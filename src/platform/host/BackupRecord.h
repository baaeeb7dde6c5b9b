#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace Quillane {

/// Stores the time (UTC) and the file of the last successful backup in the file `LastBackup` of the
/// station folder. Errors: 75 if it cannot be written.
void WriteBackupRecord(const std::string& stationFolder, std::chrono::system_clock::time_point time,
                       const std::string& file);

/// Returns the time of the last successful backup; empty if none is stored or readable.
std::optional<std::chrono::system_clock::time_point>
ReadBackupRecord(const std::string& stationFolder);

} // namespace Quillane
