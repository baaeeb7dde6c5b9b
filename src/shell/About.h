#pragma once

#include <string>

namespace Quillane {

/// Lists the facts that a fault report needs, one in each line: the program, its libraries, the
/// operating system, the station folder and the database. It contains no password. `Con` may be
/// closed.
std::string AboutText();

/// Shows `AboutText` in a box; the operator can copy the text.
void ShowAbout();

} // namespace Quillane
