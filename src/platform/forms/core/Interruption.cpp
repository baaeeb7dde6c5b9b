#include "platform/forms/core/Interruption.h"

#include "platform/forms/core/DisplayKeyboard.h"
#include "platform/forms/core/KeyRouter.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/ShownScreens.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QWindow>

#include <algorithm>

namespace Quillane {

namespace {

unsigned interruptions = 0;
Interruption* innermost = nullptr;

// The toolkit may still report a screen as active after it has been closed. If no screen is shown,
// the active window of another kind is in front.
QWidget* WindowInFront() {
    const std::vector<Screen*>& shown = ShownScreens();
    QWidget* active = QApplication::activeWindow();
    if (shown.empty())
        return dynamic_cast<Screen*>(active) ? nullptr : active;
    return std::ranges::find(shown, active) != shown.end() ? active : shown.back();
}

// Before its first screen, the program counts as active: it is about to become so.
bool IsInFront() {
    return ShownScreens().empty() || QGuiApplication::applicationState() == Qt::ApplicationActive;
}

} // namespace

Interruption::Interruption() : below_(WindowInFront()), inFront_(IsInFront()), outer_(innermost) {
    innermost = this;
    ++interruptions;
}

Interruption::~Interruption() {
    innermost = outer_;
    if (below_ && below_->isVisible()) {
        if (inFront_ || IsInFront())
            below_->activateWindow();
        if (auto* screen = dynamic_cast<Screen*>(below_.data()))
            screen->GiveQtFocus();
    }
    KeyRouter::Resume();
}

void Interruption::Awaits(QWidget& window) {
    awaits_ = true;
    window_ = &window;
}

void Interruption::Shows() {
    window_->winId(); // creates its native window
    QObject::connect(window_->windowHandle(), &QWindow::visibleChanged, &context_,
                     [this](bool visible) { Changes(visible); });
}

int Interruption::Run(QDialog& dialog) {
    Awaits(dialog);
    Shows();
    return inFront_ ? dialog.exec() : RunUnasked(dialog);
}

// The toolkit takes the keyboard for each modal window that is shown, so this dialog is not modal;
// Blocks and InputWindow have the effect of modality.
int Interruption::RunUnasked(QDialog& dialog) {
    QEventLoop loop;
    QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &dialog,
                     [&dialog](const QWindow* window) {
                         if (window && Blocks(*window))
                             dialog.activateWindow();
                     });
    unasked_ = dialog.windowHandle();
    dialog.setModal(false);
    dialog.setAttribute(Qt::WA_ShowWithoutActivating);
    dialog.show();
    loop.exec();
    return dialog.result();
}

// Called before the window is shown or hidden on the display.
void Interruption::Changes(bool visible) const {
    if (visible)
        KeyRouter::Resume();
    else
        PassKeyboard(*window_, below_ && below_->isVisible() ? below_.data() : nullptr);
}

bool Interruption::IsPending() {
    return innermost && innermost->awaits_ &&
           !(innermost->window_ && innermost->window_->isVisible());
}

QWindow* Interruption::InputWindow() {
    QWindow* unasked = Unasked();
    QWindow* window = unasked ? unasked : QGuiApplication::modalWindow();
    return window && window->isVisible() ? window : nullptr;
}

bool Interruption::Blocks(const QWindow& window) {
    const QWindow* unasked = Unasked();
    return IsPending() || (unasked && unasked != &window &&
                           !unasked->isAncestorOf(&window, QWindow::IncludeTransients));
}

QWindow* Interruption::Unasked() {
    return innermost ? innermost->unasked_.data() : nullptr;
}

unsigned Interruption::Count() {
    return interruptions;
}

} // namespace Quillane
