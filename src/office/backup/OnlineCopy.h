#pragma once

#include "office/backup/Contents.h"

#include <string>

namespace Quillane::Office {

/// Copies a database while stations save into it: the state of one moment, into one file without a
/// journal. The file must be there, and empty. Gives what the database held at that moment; throws
/// `BrokenOff` where the work is broken off.
Contents CopyOnline(const std::string& database, const std::string& copy, LongWork& work);

} // namespace Quillane::Office
