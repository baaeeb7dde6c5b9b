#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QFile;

namespace Quillane {
class LongWork;
struct StationFile;
} // namespace Quillane

/// The files of a backup folder. A backup of the database "Account1" is named after the local time:
/// "Account1-20261122-104149.db". Other files in the folder are ignored.
namespace Quillane::Office {

using Clock = std::chrono::system_clock;

/// Formats the local time, to the second: "20261122-104149".
std::string TimeInName(Clock::time_point time);

/// The local time at the end of a file's name, as `TimeInName` writes it; empty if there is none.
std::optional<Clock::time_point> TimeOfName(const std::string& file);

/// Lists the backups of this database with their paths, oldest first. Empty if the folder does not
/// exist. Errors: 75 if it cannot be read.
std::vector<std::string> BackupsIn(const std::string& folder, const std::string& database);

/// Returns an unused name: the one of the given time, or of the next second that is free.
std::string FreeBackupName(const std::string& folder, const std::string& database,
                           Clock::time_point time);

/// Removes the unfinished files of killed backups of this database. Requires: the caller holds the
/// WorkLock.
void RemoveUnfinished(const std::string& folder, const std::string& database);

/// The name of a backup until it is complete and checked.
std::string UnfinishedName(const std::string& backup);

/// The backup folder of `Station.ini`, by default `backups` in the station folder. The default
/// folder is created if it is missing; a named one is not, because its drive may not be mounted.
std::string BackupFolderOf(const std::string& stationFolder, const StationFile& station);

/// Errors: 75, with what to do, if the folder does not exist, is not a folder, or is not writable.
void CheckBackupFolder(const std::string& folder);

/// Copies owner, group and permissions of a file or folder to a file, as far as this user has the
/// right to do so. The stations may run as other users and must be able to write the file.
void CopyPermissions(const std::string& from, const std::string& file);

/// Copies the bytes of a file, which is opened and left open, to another path. `step` names the
/// work for the user. `fail` throws the failure of the file that it gets. Errors: `Cancelled`.
void CopyBytes(QFile& source, const std::string& target, const std::string& step, LongWork& work,
               const std::function<void(const QFile&)>& fail);

/// Renames a file and flushes its folder to the disk. Never replaces another file. Errors: 75.
void Rename(const std::string& file, const std::string& name);

} // namespace Quillane::Office
