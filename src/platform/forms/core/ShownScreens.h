#pragma once

#include <vector>

namespace Quillane {

class Screen;

/// The screens that are shown, the last one shown at the end.
std::vector<Screen*>& ShownScreens();

} // namespace Quillane
