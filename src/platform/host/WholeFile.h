#pragma once

#include <string>

namespace Quillane {

/// Reads all bytes of a file; empty if the file does not exist. Errors: path access (75), naming
/// the file.
std::string ReadWholeFile(const std::string& path);

enum class FileReaders { All, OwnerAndGroup };

/// Writes a temporary file in the same folder, flushes it to the disk and renames it. After an
/// error or a power failure the file holds the old or the new bytes. Errors: path access (75),
/// naming the file.
void WriteWholeFile(const std::string& path, const std::string& bytes,
                    FileReaders readers = FileReaders::All);

/// Brings what a file holds, or the names in a folder, to the disk: a power cut does not undo it.
/// Fails (75) with the name. No session of a database may have the file open: closing it here would
/// drop that session's locks.
void BringToDisk(const std::string& path);

} // namespace Quillane
