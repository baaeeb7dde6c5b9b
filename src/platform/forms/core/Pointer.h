#pragma once

namespace Quillane {

/// The mouse pointer of the whole program.
enum class MousePointer { Default = 0, Hourglass = 11 };
void SetMousePointer(MousePointer pointer);
MousePointer CurrentMousePointer();

} // namespace Quillane
