#pragma once

#include "office/backup/Contents.h"

#include <optional>
#include <string>
#include <vector>

namespace Quillane::Office {

struct BackupOrder {
    std::string database; ///< the file of an embedded database
    std::string folder;   ///< must exist
    int keep = 0;         ///< number of backups to keep, including this one; 0: all
};

struct Backup {
    std::string file;
    Contents contents{};
    std::vector<std::string> removed{}; ///< older backups
    std::vector<std::string> notes{};   ///< errors that do not affect the backup, and what to do
};

/// Makes a backup of an embedded database while stations use it. The backup gets its name when it
/// has been checked completely and flushed to the disk. Then the oldest backups beyond `keep` are
/// removed, and the time is stored in the station folder. Returns nothing if it was cancelled.
/// After an error (the text says what to do) or a cancellation there is no new file, and the
/// earlier backups are unchanged.
std::optional<Backup> BackUp(const BackupOrder& order, LongWork& work);

} // namespace Quillane::Office
