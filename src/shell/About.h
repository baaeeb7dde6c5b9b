#pragma once

#include <string>

namespace Quillane {

/// What a report of a fault should name: the program, its libraries, the system, the station and
/// its database, one fact in a line. It holds no password. `Con` may be closed.
std::string AboutText();

/// Shows it in a box, whose text can be copied.
void ShowAbout();

} // namespace Quillane
