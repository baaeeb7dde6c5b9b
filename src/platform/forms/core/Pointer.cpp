#include "platform/forms/core/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace Quillane {

void SetMousePointer(MousePointer pointer) {
    if (pointer == CurrentMousePointer())
        return;
    if (pointer == MousePointer::Hourglass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

MousePointer CurrentMousePointer() {
    return QGuiApplication::overrideCursor() ? MousePointer::Hourglass : MousePointer::Default;
}

} // namespace Quillane
