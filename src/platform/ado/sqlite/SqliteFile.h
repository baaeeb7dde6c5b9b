#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The file of an embedded database. A name that leads nowhere, to a folder, to an empty file or to
/// a write-protected one fails, with a text that names the file.
std::string ExistingDatabaseFile(const std::string& folder, std::string_view database);

} // namespace Quillane
