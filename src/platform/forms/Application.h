#pragma once

#include <QApplication>

namespace Quillane {

/// The application object. It is the one place that sees every key before its control, and every
/// mouse press before the focus moves; it hands both to the screen of the widget that receives
/// them, climbing through popups and cell editors but never out of a box or another screen.
///
/// Sets the look that the screens' colours were chosen for: Fusion, a light palette on every
/// system, Arial by name. `text` scale follows the system.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace Quillane
