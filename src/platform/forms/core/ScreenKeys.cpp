#include "platform/forms/core/KeyDispatch.h"
#include "platform/forms/core/Screen.h"
#include "platform/runtime/Text.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>

namespace Quillane {

namespace {

constexpr Qt::KeyboardModifiers CommandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool IsModifierKey(int key) {
    return key == Key::Shift || key == Key::Control || key == Key::Alt;
}

// Keys with Ctrl that edit the text of the control they are pressed in.
bool IsEditingKey(int key, int shift) {
    switch (key) {
    case 'A':
    case 'C':
    case 'V':
    case 'X':
    case 'Y':
    case 'Z':
    case Key::Left:
    case Key::Right:
    case Key::Up:
    case Key::Down:
    case Key::Home:
    case Key::End:
    case Key::PageUp:
    case Key::PageDown:
    case Key::Back:
    case Key::Insert:
        return true;
    case Key::Delete:
        return !(shift & ShiftState::Shift);
    default:
        return false;
    }
}

// True for a key before which a pending edit is stored. Alt with an arrow key opens a list.
bool IsCommand(int key, int shift) {
    if (IsModifierKey(key))
        return false;
    if (shift & ShiftState::Alt)
        return key != Key::Up && key != Key::Down;
    return shift & ShiftState::Ctrl && !IsEditingKey(key, shift);
}

} // namespace

Screen* Screen::Of(QWidget* widget) {
    while (widget) {
        if (auto* screen = dynamic_cast<Screen*>(widget))
            return screen;
        if (qobject_cast<QDialog*>(widget) || qobject_cast<QMenu*>(widget))
            return nullptr;
        const bool completer = widget->isWindow() && widget->focusProxy();
        widget = completer ? widget->focusProxy() : widget->parentWidget();
    }
    return nullptr;
}

// True if the key is used up.
bool Screen::PreviewKey(const QKeyEvent& event) {
    Reconcile();
    const std::uint64_t life = life_;
    const int shift = ShiftStateOf(event);
    int key = KeyCodeOf(event);
    if (active_ && active_->HandleDropDownKey(key, shift))
        return true;
    if (active_ && IsCommand(key, shift))
        active_->CommitEdit();
    VisualControl* const receiver = active_;
    Form_KeyDown(key, shift);
    if (!Lives(life) || key == 0)
        return true;
    if (receiver && receiver == active_ && PreviewKeyOf(*receiver, key, shift))
        return true;
    if (!Lives(life) || PreviewText(event) || PressShortcut(event))
        return true;
    const bool tab = key == Key::Tab && !(shift & (ShiftState::Ctrl | ShiftState::Alt));
    if (tab)
        MoveFocus(NextInTabOrder(active_, !(shift & ShiftState::Shift)), Move::Operator);
    return tab;
}

// True if the key is used up.
bool Screen::PreviewKeyOf(VisualControl& control, int& key, int shift) {
    if (control.KeyDown) {
        const std::uint64_t life = life_;
        control.KeyDown(key, shift);
        if (!Lives(life) || key == 0 || active_ != &control)
            return true;
    }
    return control.HandleKey(key, shift);
}

bool Screen::PreviewText(const QKeyEvent& event) {
    if (event.modifiers() & CommandModifiers)
        return false;
    if (event.key() == Qt::Key_Backspace)
        return PreviewCharacter(static_cast<char32_t>(Key::Back));
    bool swallowed = false;
    for (const char32_t character : event.text().toUcs4())
        if (QChar::isPrint(character))
            swallowed = PreviewCharacter(character) || swallowed;
    return swallowed;
}

// True if the key is swallowed; also true if the screen has been unloaded.
bool Screen::PreviewCharacter(char32_t character) {
    const std::uint64_t life = life_;
    int code = static_cast<int>(character);
    Form_KeyPress(code);
    return !Lives(life) || code == 0;
}

// One swallowed character swallows the whole text: the remaining characters would be a different
// text.
bool Screen::PreviewCommitted(const QString& text) {
    const std::uint64_t life = life_;
    bool swallowed = false;
    for (const char32_t character : text.toUcs4())
        if (Lives(life))
            swallowed = PreviewCharacter(character) || swallowed;
    return swallowed;
}

VisualControl* Screen::ShortcutControl(const QKeyEvent& event) const {
    const QKeySequence pressed(event.keyCombination());
    for (Control* control : controls_) {
        auto* visual = dynamic_cast<VisualControl*>(control);
        const auto* button = visual ? qobject_cast<QAbstractButton*>(&visual->Widget()) : nullptr;
        if (button && visual->CanTakeFocus() && button->shortcut() == pressed)
            return visual;
    }
    return nullptr;
}

bool Screen::PressShortcut(const QKeyEvent& event) {
    VisualControl* control = ShortcutControl(event);
    if (!control)
        return false;
    const std::uint64_t life = life_;
    MoveFocus(control, Move::Operator);
    if (Lives(life) && active_ == control)
        qobject_cast<QAbstractButton*>(&control->Widget())->click();
    return true;
}

void Screen::SendTab() {
    if (KeyDispatch* dispatch = KeyDispatch::Current(*this))
        dispatch->AddTab();
    else
        DeliverTab();
}

bool Screen::ActiveControlIsButton() const {
    return EqualIgnoringCase(ActiveControlName().substr(0, 3), "Btn");
}

void Screen::EnterAsTab(int& key) {
    if (ActiveControlIsButton())
        return;
    key = 0;
    SendTab();
}

void Screen::DeliverTab() {
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
    QCoreApplication::sendEvent(active_ ? &active_->FocusWidget() : this, &tab);
}

// Qt's Enter and Escape of a dialog are off: the screen decides what these keys do.
void Screen::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

} // namespace Quillane
