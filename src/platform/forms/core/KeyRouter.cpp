#include "platform/forms/core/KeyRouter.h"

#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/ShownScreens.h"

#include <QApplication>
#include <QWindow>

// A private function, because the toolkit has no public one that delivers a key to another window:
// its event handling drops a key for a blocked or closed window before any filter of the
// application gets it.
#include <qpa/qwindowsysteminterface_p.h>

#include <deque>
#include <functional>
#include <memory>

namespace Quillane {

namespace {

using ServerEvent = QWindowSystemInterfacePrivate::WindowSystemEvent;
using ServerKey = QWindowSystemInterfacePrivate::KeyEvent;
using ServerMouse = QWindowSystemInterfacePrivate::MouseEvent;
using ServerActivation = QWindowSystemInterfacePrivate::ActivatedWindowEvent;

// Keys in a drop-down of the box or modal screen stay in the drop-down.
QWindow* ReceiverOf(QWindow* window) {
    const bool shown = window && window->isVisible();
    if (QWindow* input = Interruption::InputWindow())
        return shown && input->isAncestorOf(window, QWindow::IncludeTransients) ? window : input;
    return shown || ShownScreens().empty() ? window : ShownScreens().back()->windowHandle();
}

/// The handling of a key or a press, with the window that had the input when it began.
class Handling {
public:
    Handling() : outer_(innermost) { innermost = this; }
    ~Handling() { innermost = outer_; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

    /// True while a key is being handled and nothing has been shown above its window: the next key
    /// must not be handled inside it.
    static bool IsRunning() {
        return innermost && innermost->input_ == Interruption::InputWindow() &&
               innermost->popup_ == QApplication::activePopupWidget();
    }

private:
    static Handling* innermost;

    const QWindow* input_ = Interruption::InputWindow();
    const QWidget* popup_ = QApplication::activePopupWidget();
    Handling* outer_;
};

Handling* Handling::innermost = nullptr;

bool KeysMustWait() {
    return Interruption::IsPending() || Handling::IsRunning();
}

} // namespace

class KeyRouter::Handler : public QObject, public QWindowSystemEventHandler {
public:
    Handler() { QWindowSystemInterfacePrivate::installWindowSystemEventHandler(this); }

    bool sendEvent(ServerEvent* event) override {
        switch (event->type) {
        case QWindowSystemInterfacePrivate::Key:
            Take(static_cast<ServerKey&>(*event));
            break;
        case QWindowSystemInterfacePrivate::Mouse:
            Take(static_cast<ServerMouse&>(*event));
            break;
        case QWindowSystemInterfacePrivate::ActivatedWindow:
            if (!IsLate(static_cast<ServerActivation&>(*event)))
                QWindowSystemEventHandler::sendEvent(event);
            break;
        default:
            QWindowSystemEventHandler::sendEvent(event);
        }
        return true;
    }

    void Resume() {
        if (!waiting_.empty()) {
            QMetaObject::invokeMethod(
                this, [this] { DeliverWaiting(); }, Qt::QueuedConnection);
        }
    }

private:
    // A key that was received before this report has closed the window.
    static bool IsLate(const ServerActivation& report) {
        return report.activated && !report.activated->isVisible();
    }

    void Take(ServerKey& key) {
        if (waiting_.empty() && !KeysMustWait())
            Deliver(key);
        else
            waiting_.push_back([this, key]() mutable { Deliver(key); });
    }

    // A press waits after waiting keys, so that the order is kept.
    void Take(ServerMouse& mouse) {
        if (waiting_.empty() || Interruption::IsPending())
            Send(mouse);
        else
            waiting_.push_back([this, mouse]() mutable { Send(mouse); });
    }

    void Deliver(ServerKey& key) {
        key.window = ReceiverOf(key.window);
        if (key.window)
            Send(key);
    }

    void Send(ServerEvent& event) {
        {
            const Handling handling;
            QWindowSystemEventHandler::sendEvent(&event);
        }
        Resume();
    }

    void DeliverWaiting() {
        while (!waiting_.empty() && !KeysMustWait()) {
            const std::function<void()> next = std::move(waiting_.front());
            waiting_.pop_front();
            next();
        }
    }

    std::deque<std::function<void()>> waiting_;
};

namespace {

KeyRouter* current = nullptr;

} // namespace

KeyRouter::KeyRouter() : handler_(std::make_unique<Handler>()) {
    current = this;
}

KeyRouter::~KeyRouter() {
    current = nullptr;
}

void KeyRouter::Resume() {
    if (current)
        current->handler_->Resume();
}

} // namespace Quillane
