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

// The toolkit may still report a screen as active after it has been closed.
Screen* ScreenInFront() {
    const std::vector<Screen*>& shown = ShownScreens();
    auto* active = dynamic_cast<Screen*>(QApplication::activeWindow());
    if (std::ranges::find(shown, active) != shown.end())
        return active;
    return shown.empty() ? nullptr : shown.back();
}

// Before its first screen, the program counts as active: it is about to become so.
bool IsInFront() {
    return ShownScreens().empty() || QGuiApplication::applicationState() == Qt::ApplicationActive;
}

} // namespace

Interruption::Interruption() : below_(ScreenInFront()), inFront_(IsInFront()), outer_(innermost) {
    innermost = this;
    ++interruptions;
}

Interruption::~Interruption() {
    innermost = outer_;
    if (Screen* below = Below(); below && below->shown_) {
        if (inFront_ || IsInFront())
            below->activateWindow();
        below->GiveQtFocus();
    }
    KeyRouter::Resume();
}

Screen* Interruption::Below() const {
    return static_cast<Screen*>(below_.data());
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
    if (visible) {
        KeyRouter::Resume();
    } else {
        const Screen* below = Below();
        PassKeyboard(*window_, below && below->shown_ ? below : nullptr);
    }
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
