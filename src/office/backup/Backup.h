#pragma once

#include "office/backup/Contents.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillane::Office {

struct BackupOrder {
    std::string database; ///< the file of an embedded database
    std::string folder;   ///< must be there
    int keep = 0;         ///< backups that stay, this one among them; 0: all
};

struct Backup {
    std::string file;
    Contents contents{};
    std::vector<std::string> removed{}; ///< older backups
    std::vector<std::string>
        notes{}; ///< what went wrong without harm to the backup, and what to do
};

/// Makes a backup of an embedded database while stations work in it. It gets its name when it has
/// been checked in full and is on the disk; then the oldest beyond `keep` go, and the station's
/// folder remembers the time. Where anything before fails (with a text that says what to do), or
/// the work is broken off, there is no new file and all others are as they were. Empty where it is
/// broken off.
std::optional<Backup> BackUp(const BackupOrder& order, LongWork& work);

} // namespace Quillane::Office
