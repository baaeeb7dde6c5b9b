#pragma once

#include "office/backup/Contents.h"

#include <string>

namespace Quillane::Office {

/// Copies a consistent snapshot of a database, while stations save to it, into one file without a
/// journal. Returns the contents of the snapshot. Requires: the file `copy` exists and is empty.
/// Throws `Cancelled`.
Contents CopyOnline(const std::string& database, const std::string& copy, LongWork& work);

} // namespace Quillane::Office
