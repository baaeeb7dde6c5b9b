#pragma once

#include <string>

class QFileDevice;

namespace Quillane {

/// Makes an empty file that its owner and group alone may use, for what others must not read. In a
/// folder that hands its group on the group may write it as well: several users share what is
/// there. Where it cannot be made, whoever writes it will say so.
void MakePrivateFile(const std::string& path);

/// The same for a file that is open for writing and holds nothing yet.
void MakePrivate(QFileDevice& file);

} // namespace Quillane
