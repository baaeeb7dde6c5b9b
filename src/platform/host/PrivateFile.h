#pragma once

#include <string>

class QFileDevice;

namespace Quillane {

/// Creates an empty file that only its owner and group can read and write. In a folder with the
/// set-group-id bit the group can write it too, because several users share such a folder. An error
/// is not reported here: writing to the file reports it.
void MakePrivateFile(const std::string& path);

/// Removes the access of other users from an open file. Requires: the file is still empty.
void MakePrivate(QFileDevice& file);

} // namespace Quillane
