#pragma once

#include "platform/forms/core/DisplayKeyboard.h"
#include "platform/forms/core/KeyRouter.h"

#include <QApplication>
#include <QPointer>

class QInputMethodEvent;
class QKeyEvent;

namespace Quillane {

/// The application object. It is the one place that sees every key before its control, and every
/// mouse press before the focus moves; it hands both to the screen of the widget that receives
/// them, climbing through popups and cell editors but never out of a box or another screen.
///
/// Sets the look that the screens' colours were chosen for: Fusion, a light palette on every
/// system, Arial by name. The scale follows the system.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool NotifyKey(QWidget& receiver, QKeyEvent& event);
    bool NotifyPress(QWidget& receiver, QEvent& event);
    bool NotifyDrag(QWidget& receiver, QEvent& event);
    bool NotifyInputMethod(QWidget& receiver, QInputMethodEvent& event);

    QPointer<QWidget> pressUsedUp_; ///< where, until the mouse button is let go
    KeyRouter keyRouter_;
    KeysOfClosedWindows keysOfClosedWindows_;
};

} // namespace Quillane
