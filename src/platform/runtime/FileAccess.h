#pragma once

#include <string>

namespace Quillane {

/// Restricts a file that contains secrets to its owner and group, as older versions did not create
/// it so. Does nothing if the file belongs to another user, or if other users may write it: it is
/// then shared on purpose. An error is not reported: the file stays as it is.
void RemoveAccessOfOthers(const std::string& path);

} // namespace Quillane
