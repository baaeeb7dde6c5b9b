#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The file of an embedded database. Errors: it does not exist, is a folder, is empty or is
/// read-only; the text names the file.
std::string ExistingDatabaseFile(const std::string& folder, std::string_view database);

/// Fails because this user cannot write the file, or the files of the log in its folder.
[[noreturn]] void FailReadOnly(const std::string& path);

/// True if the file has a write-ahead log that is not empty.
bool HasLogWithContents(const std::string& path);

/// The URI that opens the file without its log and without writing.
std::string ImmutableUri(const std::string& path);

} // namespace Quillane
