#pragma once

namespace Quillane {

/// The mouse pointer of the whole program.
enum class MousePointer { Default = 0, Hourglass = 11 };
void SetMousePointer(MousePointer pointer);
MousePointer CurrentMousePointer();

/// The hourglass during its lifetime; then the pointer that was shown before.
class Hourglass {
public:
    Hourglass() { SetMousePointer(MousePointer::Hourglass); }
    ~Hourglass() { SetMousePointer(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    MousePointer before_ = CurrentMousePointer();
};

} // namespace Quillane
