#pragma once

#include <QAbstractNativeEventFilter>

class QWidget;

namespace Quillane {

/// Moves the keyboard focus of the X server from a window to the window `to`. To be called
/// immediately before `from` is hidden: otherwise keys are lost until the window manager has chosen
/// the next window. A null `to` means the window that will be shown next. Does nothing if
/// another program has the keyboard. If `from` has only just been shown, waits until the window
/// manager has given it the keyboard. Does nothing on other systems.
void PassKeyboard(const QWidget& from, const QWidget* to);

/// Keeps keys that the X server sent to a window which was closed before they were read: they are
/// treated as sent to another window of this program. Drops the report that a hidden window got the
/// keyboard, since the toolkit would make it the active window. To be installed on the application.
class KeysOfClosedWindows : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;
};

} // namespace Quillane
