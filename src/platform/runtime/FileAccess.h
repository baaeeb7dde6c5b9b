#pragma once

#include <string>

namespace Quillane {

/// Restricts a file that contains secrets to its owner and group, because older versions created it
/// with more permissions. Does nothing if the file belongs to another user, or if other users may
/// write it: it is then shared on purpose. An error is not reported, and the file is then not
/// changed.
void RemoveAccessOfOthers(const std::string& path);

} // namespace Quillane
