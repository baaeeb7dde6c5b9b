#pragma once

#include "setup/EmbeddedFile.h"

#include <memory>
#include <string>

namespace Quillane::Office {

/// The present database, taken so that no station can open it. Its journal has been brought into
/// the file, and is gone. A file that is missing or damaged is held by nobody, and stays as it is.
class HeldDatabase {
public:
    /// Fails, with what to do, where a station or an office has the file open.
    explicit HeldDatabase(const std::string& path);

    bool Exists() const { return exists_; }
    /// The session that holds it; null where nobody does.
    EmbeddedFile* File() { return session_.get(); }
    /// Moves the file, and what a damaged one has next to it, to this name, and puts another file
    /// in its place: at each moment the old or the new one has its name. A failure leaves the old
    /// one.
    void ReplaceBy(const std::string& file, const std::string& nameOfOld);

private:
    void Take();

    std::string path_;
    bool exists_ = false;
    std::unique_ptr<EmbeddedFile> session_; ///< null where it cannot be held
};

} // namespace Quillane::Office
