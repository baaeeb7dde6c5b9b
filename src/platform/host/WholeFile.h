#pragma once

#include <string>

namespace Quillane {

/// All bytes of a file; empty where there is none. One that cannot be read fails (75) with its
/// name.
std::string ReadWholeFile(const std::string& path);

enum class FileReaders { All, OwnerAndGroup };

/// Writes a temporary file in the same folder, flushes it to the disk and renames it: afterwards,
/// and after a failure (75) or a power cut, the file holds the old or the new bytes.
void WriteWholeFile(const std::string& path, const std::string& bytes,
                    FileReaders readers = FileReaders::All);

/// Brings what a file holds, or the names in a folder, to the disk: a power cut does not undo it.
/// Fails (75) with the name. No session of a database may have the file open: closing it here would
/// drop that session's locks.
void BringToDisk(const std::string& path);

} // namespace Quillane
