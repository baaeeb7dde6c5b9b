#pragma once

#include <string>

namespace Quillane {

/// The folder of the executable, without a separator at its end: `Config.ini`, `Station.ini` and
/// embedded databases lie there.
std::string ProgramFolder();

/// Replaces the program folder, for trials in a folder of their own. Empty brings the real one
/// back.
void SetProgramFolder(std::string folder);

} // namespace Quillane
