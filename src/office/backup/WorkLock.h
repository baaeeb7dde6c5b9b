#pragma once

#include "setup/EmbeddedFile.h"

#include <memory>
#include <string>

namespace Quillane::Office {

/// Prevents two backups or restores of one database at the same time. It is a lock of the operating
/// system on the empty file "Account1.db.lock" next to the database, and is released when its
/// process ends, however it ends.
class WorkLock {
public:
    /// Errors: 75 if another process has the lock, or if the file cannot be created.
    explicit WorkLock(const std::string& database);

private:
    std::unique_ptr<EmbeddedFile> file_;
};

} // namespace Quillane::Office
