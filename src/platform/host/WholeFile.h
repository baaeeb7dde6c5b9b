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

/// Flushes the contents of a file, or the names in a folder, to the disk, so that they survive a
/// power failure. Errors: path access (75), naming the file. Requires: no database session of this
/// process has the file open, because closing it here would drop the locks of that session.
void FlushToDisk(const std::string& path);

} // namespace Quillane
