#pragma once

#include <string>
#include <string_view>

namespace Quillane {

/// The file of an embedded database. A name that leads nowhere, to a folder, to an empty file or to
/// a write-protected one fails, with a text that names the file.
std::string ExistingDatabaseFile(const std::string& folder, std::string_view database);

/// Whether there is a write-ahead log of the file that holds something.
bool HasLogWithContents(const std::string& path);

/// Lets the file be read by its owner and group alone: it holds the passwords' hashes. One that
/// others may write is left as it is: somebody wants a station of theirs to use it.
void KeepFromOthers(const std::string& path);

/// The file as the engine opens it by itself, without its log, and without writing anything.
std::string ImmutableUri(const std::string& path);

} // namespace Quillane
