#pragma once

#include <QAbstractNativeEventFilter>

class QWidget;

namespace Quillane {

/// Gives the keyboard to a window that is shown, where this program has it: as the last thing
/// before the window `from` is hidden. Otherwise the X server sends what is typed to nobody, until
/// the window manager has found the next window. Null means the window that is shown next. Waits
/// until the window manager has given the keyboard to `from`, where that has only now been shown.
/// Does nothing on other systems.
void PassKeyboard(const QWidget& from, const QWidget* to);

/// Saves the keys that the X server sent to a window which was closed before they were read: they
/// count as sent to another window of this program. A window that had the keyboard only after it
/// was hidden is not reported to the toolkit, which would take it for the active one. Install it on
/// the application.
class KeysOfClosedWindows : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;
};

} // namespace Quillane
