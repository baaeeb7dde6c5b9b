#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace Quillane {
struct StationFile;
}

/// The files of a backup folder. A backup of the database "Account1" is named by the local time:
/// "Account1-20261122-104149.db". No other file in the folder is looked at.
namespace Quillane::Office {

using Clock = std::chrono::system_clock;

/// "20261122-104149"; local time, to the second.
std::string TimeInName(Clock::time_point time);

/// The backups of this database, the oldest first, each with its folder. A folder that is missing
/// has none; one that cannot be read fails (75).
std::vector<std::string> BackupsIn(const std::string& folder, const std::string& database);

/// A name that no file in the folder has yet: that of the time, or of the next second that is free.
std::string FreeBackupName(const std::string& folder, const std::string& database,
                           Clock::time_point time);

/// Removes what broken-off backups of this database have left. Nobody else may be making one.
void RemoveUnfinished(const std::string& folder, const std::string& database);

/// What a backup is called until it counts.
std::string UnfinishedName(const std::string& backup);

/// The folder that `Station.ini` names for backups. The default one, `backups` in the station's
/// folder, is made where it is missing; one that is named is not: its drive may not be connected.
std::string BackupFolderOf(const std::string& stationFolder, const StationFile& station);

/// Whether a backup could be written there: fails (75) with what to do where the folder is missing,
/// is no folder, or may not be written.
void CheckBackupFolder(const std::string& folder);

/// Gives a file the owner, group and rights of another one, or of a folder, as far as this user
/// may: the stations, which may be other users, must be able to write it.
void TakeRightsOf(const std::string& model, const std::string& file);

/// A file is to be moved into place by this: it never replaces another one, and is on the disk
/// afterwards. Fails (75).
void GiveName(const std::string& file, const std::string& name);

} // namespace Quillane::Office
