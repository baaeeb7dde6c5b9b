#include "platform/forms/core/KeyRouter.h"

#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/ShownScreens.h"

#include <QApplication>
#include <QWindow>

// The toolkit has no public place at which a key can still be given to another window.
#include <qpa/qwindowsysteminterface_p.h>

#include <deque>
#include <functional>
#include <memory>

namespace Quillane {

namespace {

using ServerEvent = QWindowSystemInterfacePrivate::WindowSystemEvent;
using ServerKey = QWindowSystemInterfacePrivate::KeyEvent;
using ServerMouse = QWindowSystemInterfacePrivate::MouseEvent;

// The box or modal screen that is up keeps its own drop-downs' keys where they are.
QWindow* ReceiverOf(QWindow* window) {
    const bool shown = window && window->isVisible();
    if (QWindow* input = Interruption::InputWindow()) {
        return shown && input->isAncestorOf(window, QWindow::IncludeTransients) ? window : input;
    }
    return shown || ShownScreens().empty() ? window : ShownScreens().back()->windowHandle();
}

/// The handling of a key or a press, and what was up as it began.
class Handling {
public:
    Handling() : outer_(innermost) { innermost = this; }
    ~Handling() { innermost = outer_; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

    /// True while one goes on that nothing has come up over: what it lets run is no place for the
    /// next key.
    static bool GoesOn() {
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
    return Interruption::IsPending() || Handling::GoesOn();
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
        default:
            QWindowSystemEventHandler::sendEvent(event);
        }
        return true;
    }

    void Resume() {
        if (!waiting_.empty()) {
            QMetaObject::invokeMethod(
                this, [this] { HandOnWaiting(); }, Qt::QueuedConnection);
        }
    }

private:
    void Take(ServerKey& key) {
        if (waiting_.empty() && !KeysMustWait()) {
            HandOn(key);
        } else {
            waiting_.push_back([this, key]() mutable { HandOn(key); });
        }
    }

    // The mouse waits for keys that wait, so that it does not overtake them.
    void Take(ServerMouse& mouse) {
        if (waiting_.empty() || Interruption::IsPending()) {
            Send(mouse);
        } else {
            waiting_.push_back([this, mouse]() mutable { Send(mouse); });
        }
    }

    void HandOn(ServerKey& key) {
        key.window = ReceiverOf(key.window);
        if (key.window) {
            Send(key);
        }
    }

    void Send(ServerEvent& event) {
        {
            const Handling handling;
            QWindowSystemEventHandler::sendEvent(&event);
        }
        Resume();
    }

    void HandOnWaiting() {
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
    if (current) {
        current->handler_->Resume();
    }
}

} // namespace Quillane
