#include "platform/forms/core/Application.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/FontFamilies.h"
#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/KeyDispatch.h"
#include "platform/forms/core/Screen.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleFactory>
#include <QWindow>

namespace Quillane {

namespace {

// Set explicitly, because the palette of the style may follow a dark theme of the system.
QPalette LightPalette() {
    QPalette palette(QColor(0xF0, 0xF0, 0xEC));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF6, 0xF6, 0xF2));
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE6));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, QColor(0x70, 0x70, 0x70));
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x5F, 0xA8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, QColor(0x78, 0x78, 0x78));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x50, 0x50, 0x50));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE0, 0xE0, 0xE0));
    return palette;
}

bool IsPressOrClose(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
    case QEvent::Drop:
    case QEvent::ContextMenu:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setStyle(QStyleFactory::create("Fusion"));
    setPalette(LightPalette());
    setFont(QFont(FontFamilies("Arial"), 11));
    // The screens end the program; closing the sign-in dialog, the only window, does not.
    setQuitOnLastWindowClosed(false);
    installNativeEventFilter(&keysOfClosedWindows_);
    connect(this, &QApplication::focusChanged, this, [](QWidget*, QWidget* now) {
        if (Screen* screen = Screen::Of(now))
            screen->QtFocusMoved();
    });
}

bool Application::notify(QObject* receiver, QEvent* event) {
    if (receiver->isWindowType() && IsPressOrClose(event->type()) &&
        Interruption::Blocks(static_cast<const QWindow&>(*receiver))) {
        event->ignore();
        return false;
    }
    if (!receiver->isWidgetType())
        return QApplication::notify(receiver, event);
    auto& widget = static_cast<QWidget&>(*receiver);
    switch (event->type()) {
    case QEvent::KeyPress:
        return NotifyKey(widget, static_cast<QKeyEvent&>(*event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return NotifyPress(widget, *event);
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return NotifyDrag(widget, *event);
    case QEvent::InputMethod:
        return NotifyInputMethod(widget, static_cast<QInputMethodEvent&>(*event));
    case QEvent::ShortcutOverride:
        // If this is accepted, a button's shortcut arrives as a key, which the screen receives
        // first.
        if (Screen* screen = Screen::Of(&widget);
            screen && screen->ShortcutControl(static_cast<QKeyEvent&>(*event))) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QApplication::notify(receiver, event);
}

bool Application::NotifyKey(QWidget& receiver, QKeyEvent& event) {
    QPointer<Screen> screen = Screen::Of(&receiver);
    if (!screen || KeyDispatch::Handles(event))
        return QApplication::notify(&receiver, &event);
    const QPointer<QWidget> target = &receiver;
    const std::uint64_t life = screen->life_;
    int tabs = 0;
    bool result = true;
    {
        KeyDispatch dispatch(event, *screen);
        bool used = true;
        RunEvent([&] { used = screen->PreviewKey(event); });
        event.accept();
        if (!used && target)
            result = QApplication::notify(target, &event);
        tabs = dispatch.Tabs();
    }
    for (; tabs > 0 && screen && screen->Lives(life); --tabs)
        screen->DeliverTab();
    return result;
}

bool Application::NotifyPress(QWidget& receiver, QEvent& event) {
    pressUsedUp_ = nullptr;
    QPointer<Screen> screen = Screen::Of(&receiver);
    if (!screen)
        return QApplication::notify(&receiver, &event);
    const QPointer<QWidget> target = &receiver;
    const std::uint64_t life = screen->life_;
    const unsigned interruptions = Interruption::Count();
    auto press = Screen::Press::Nothing;
    RunEvent([&] { press = screen->PressedOn(receiver); });
    // After a box the mouse button has been released already. If the press were delivered now, its
    // release would be missing.
    const bool isShown = target && screen && screen->life_ == life;
    if (!isShown || Interruption::Count() != interruptions)
        press = Screen::Press::Nothing;
    if (press != Screen::Press::HandedOn) {
        pressUsedUp_ = press == Screen::Press::UsedUp ? target : nullptr;
        event.accept();
        return true;
    }
    const bool result = QApplication::notify(target, &event);
    if (screen && screen->Lives(life))
        screen->GiveQtFocus();
    return result;
}

// The mouse moves slightly during a press. If the press was used up, these moves select nothing.
bool Application::NotifyDrag(QWidget& receiver, QEvent& event) {
    const bool usedUp = pressUsedUp_ == &receiver;
    if (event.type() == QEvent::MouseButtonRelease)
        pressUsedUp_ = nullptr;
    if (usedUp) {
        event.accept();
        return true;
    }
    return QApplication::notify(&receiver, &event);
}

bool Application::NotifyInputMethod(QWidget& receiver, QInputMethodEvent& event) {
    Screen* screen = Screen::Of(&receiver);
    if (!screen || event.commitString().isEmpty())
        return QApplication::notify(&receiver, &event);
    const QPointer<QWidget> target = &receiver;
    bool swallowed = true;
    RunEvent([&] { swallowed = screen->PreviewCommitted(event.commitString()); });
    if (!target)
        return true;
    QInputMethodEvent passed(event.preeditString(), event.attributes());
    if (!swallowed) {
        passed.setCommitString(event.commitString(), event.replacementStart(),
                               event.replacementLength());
    }
    return QApplication::notify(target, &passed);
}

} // namespace Quillane
