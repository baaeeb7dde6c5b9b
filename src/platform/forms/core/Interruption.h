#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;
class QWindow;

namespace Quillane {

/// A box or modal screen above the active window. When it ends, the window below becomes the active
/// one. A screen has its focus again, without a focus event.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// The window that was in front when the interruption began; null if there was none.
    QWidget* Below() const { return below_; }

    /// Blocks the program until the window is shown, and again after it is hidden until this object
    /// is destroyed: no window accepts a press or is closed, and keys wait.
    void Awaits(QWidget& window);
    /// Requires: `Awaits`. Delivers the waiting keys as soon as the window is shown.
    void Shows();
    /// Shows a dialog, waits for its end and returns its result. The dialog takes the keyboard, but
    /// not from another program: then it is shown below that program's window, and takes the
    /// keyboard when this program becomes active.
    int Run(QDialog& dialog);

    /// True while the window of the innermost interruption is not shown.
    static bool IsPending();
    /// The box or modal window that receives all input, or null.
    static QWindow* InputWindow();
    /// True while a window accepts no press and cannot be closed. The toolkit itself blocks the
    /// windows below a modal one.
    static bool Blocks(const QWindow& window);

    /// How many there have been. A change during a procedure means that one was shown.
    static unsigned Count();

private:
    int RunUnasked(QDialog& dialog);
    static QWindow* Unasked();
    void Changes(bool visible) const;

    QPointer<QWidget> below_;
    bool awaits_ = false;
    QPointer<QWidget> window_;
    bool inFront_;              ///< true if this program was active when the interruption began
    QPointer<QWindow> unasked_; ///< of a dialog shown while another program was active
    Interruption* outer_;
    QObject context_; ///< disconnects what Shows has connected
};

} // namespace Quillane
