#pragma once

#include "setup/EmbeddedFile.h"

#include <memory>
#include <string>

namespace Quillane::Office {

/// An exclusive lock on the current database: no station can open it. Its journal has been written
/// back into the file and removed. A missing or damaged file cannot be locked and is not changed.
class HeldDatabase {
public:
    /// Errors: 75, with what to do, if a station or an office has the file open or the disk is
    /// full.
    explicit HeldDatabase(const std::string& path);

    bool Exists() const { return exists_; }
    /// The session that holds the lock; null if there is none.
    EmbeddedFile* File() { return session_.get(); }
    /// Renames the file, and the journals of a damaged one, to `nameOfOld`, and replaces it by
    /// `file`. The replacement is atomic. After an error the old file is still in place.
    void ReplaceBy(const std::string& file, const std::string& nameOfOld);

private:
    void Lock();

    std::string path_;
    bool exists_ = false;
    std::unique_ptr<EmbeddedFile> session_; ///< holds the lock; null if it cannot be locked
};

} // namespace Quillane::Office
