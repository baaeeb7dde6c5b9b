#pragma once

#include "platform/forms/core/DisplayKeyboard.h"
#include "platform/forms/core/KeyRouter.h"

#include <QApplication>
#include <QPointer>

class QInputMethodEvent;
class QKeyEvent;

namespace Quillane {

/// The application object. It receives every key before the control does, and every press of the
/// mouse before the focus moves, and gives both to the screen of the receiving widget. A popup and
/// a cell editor belong to the screen that opened them; a box belongs to no screen.
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

    QPointer<QWidget> pressUsedUp_; ///< receiver of that press, until the button is released
    KeyRouter keyRouter_;
    KeysOfClosedWindows keysOfClosedWindows_;
};

} // namespace Quillane
