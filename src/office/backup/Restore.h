#pragma once

#include "office/backup/Contents.h"
#include "office/backup/WorkLock.h"

#include <string>

namespace Quillane::Office {

/// Puts a copy in the place of an embedded database. Making one checks all of the copy, and changes
/// nothing; `PutInPlace` does it. Killed at any moment, or without power, the station's database is
/// the old one or the copy, whole.
class Restoration {
public:
    /// Fails, with what to do, where the copy is no database of a station, newer than this program,
    /// damaged or not complete, and where a station or an office has the database open. Throws
    /// `BrokenOff` where the work is broken off.
    Restoration(std::string database, const std::string& copy, LongWork& work);
    ~Restoration();
    Restoration(const Restoration&) = delete;
    Restoration& operator=(const Restoration&) = delete;

    const Contents& OfCopy() const { return contents_; }

    /// Gives the file that the database of before is kept in; restoring that one undoes it. Empty
    /// where there was none. Fails where the database has been opened meanwhile.
    std::string PutInPlace();

private:
    std::string database_;
    WorkLock lock_;
    std::string checked_; ///< the copy of the copy, next to the database
    Contents contents_;
};

} // namespace Quillane::Office
