#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;
class QWindow;

namespace Quillane {

class Screen;

/// A box or a modal screen coming up over the screen that is active. As it ends, the screen below
/// has the window and the focus back, with no focus event.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    Screen* Below() const;

    /// From here on, as long as the window is not shown and again once it is hidden, until this
    /// object goes: no window of the program takes a press or is closed, and keys wait.
    void Awaits(QWidget& window);
    /// The awaited window is about to be shown: keys are handed on as soon as it is.
    void Shows();
    /// Shows a dialog and waits for its end; gives its result. It takes the keyboard, but not from
    /// another program: then it is shown below that program's window, and takes the keyboard as
    /// soon as this program has it.
    int Run(QDialog& dialog);

    /// True while the innermost interruption's window is not there.
    static bool IsPending();
    /// The window that has all input, the box or modal window that is up, or null.
    static QWindow* InputWindow();
    /// True while a window of the program takes no press and is not closed. The toolkit itself
    /// blocks those below a modal window.
    static bool Blocks(const QWindow& window);

    /// How many there have been: tells whether one came up during a procedure.
    static unsigned Count();

private:
    int RunUnasked(QDialog& dialog);
    static QWindow* Unasked();
    void Changes(bool visible) const;

    QPointer<QObject> below_;
    bool awaits_ = false;
    QPointer<QWidget> window_;
    bool inFront_;              ///< no other program was, as this began
    QPointer<QWindow> unasked_; ///< of the dialog shown while another program was in front
    Interruption* outer_;
    QObject context_; ///< ends what Shows has connected
};

} // namespace Quillane
