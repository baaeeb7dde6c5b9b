#pragma once

#include "setup/EmbeddedFile.h"

#include <memory>
#include <string>

namespace Quillane::Office {

/// Held by whoever makes or restores a backup of a database: one at a time. It is a lock of the
/// system on the empty file "Account1.db.lock" next to the database, and ends with its process,
/// however that ends.
class WorkLock {
public:
    /// Fails where another process holds it, or the file cannot be made.
    explicit WorkLock(const std::string& database);

private:
    std::unique_ptr<EmbeddedFile> file_;
};

} // namespace Quillane::Office
