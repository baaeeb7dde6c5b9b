#pragma once

#include <QAbstractNativeEventFilter>

class QWidget;

namespace Quillane {

/// Gives the keyboard to a window that is shown, where this program has it: as the last thing
/// before the window that has it is hidden. Otherwise the X server sends what is typed to nobody,
/// until the window manager has found the next window. Null stands for the one that is shown next.
/// Does nothing on other systems.
void PassKeyboard(const QWidget* to);

/// Saves the keys that the X server sent to a window which was closed before they were read: they
/// count as sent to another window of this program. Install it on the application.
class KeysOfClosedWindows : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;
};

} // namespace Quillane
