#pragma once

#include "office/backup/Contents.h"
#include "office/backup/WorkLock.h"

#include <string>
#include <vector>

namespace Quillane::Office {

/// Checks the whole copy and returns its contents. Errors: a failure that says what to do if
/// `Restoration` would refuse the copy. Throws `Cancelled` if the work is cancelled.
Contents CheckCopy(const std::string& database, const std::string& copy, LongWork& work);

/// The files in which restores have kept earlier databases, the oldest first. Restoring one of them
/// undoes a restore.
std::vector<std::string> KeptByRestores(const std::string& database);

/// Replaces an embedded database by a backup. The constructor checks the backup completely and
/// changes nothing; `PutInPlace` replaces the database. If the process is killed or the power
/// fails, the database is either the old one or the backup, complete.
class Restoration {
public:
    /// Errors: a failure that says what to do if the backup is not a station database, is newer
    /// than this program, damaged or incomplete, or if a station or an office has the database
    /// open. Throws `Cancelled`.
    Restoration(std::string database, const std::string& copy, LongWork& work);
    ~Restoration();
    Restoration(const Restoration&) = delete;
    Restoration& operator=(const Restoration&) = delete;

    const Contents& OfCopy() const { return contents_; }

    /// Returns the file that now contains the previous database; restoring it undoes this restore.
    /// Empty if there was none. Errors: 75 if the database has been opened since the constructor
    /// ran.
    std::string PutInPlace();

private:
    std::string database_;
    WorkLock lock_;
    std::string checked_; ///< a copy of the backup in the folder of the database
    Contents contents_;
};

} // namespace Quillane::Office
