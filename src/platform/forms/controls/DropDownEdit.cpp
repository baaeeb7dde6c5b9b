#include "platform/forms/controls/DropDownEdit.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace Quillane {

DropDownEdit::DropDownEdit(QWidget* parent) : FilteredLine(parent) {
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (Edited)
            Edited(adding_ && cursorPosition() == text().size());
    });
}

void DropDownEdit::Complete(const QString& name) {
    Settle();
    const int typed = static_cast<int>(text().size());
    const int length = static_cast<int>(name.size());
    setText(name);
    setSelection(length, typed - length);
}

void DropDownEdit::ShowText(const QString& shown) {
    selectsShown_ = hasFocus();
    Write(shown);
}

void DropDownEdit::Show(const QString& text) {
    setText(text);
    setCursorPosition(0);
    if (selectsShown_)
        selectAll();
}

void DropDownEdit::keyPressEvent(QKeyEvent* event) {
    const bool prints = !event->text().isEmpty() && event->text().front().isPrint();
    adding_ = prints || event->matches(QKeySequence::Paste);
    FilteredLine::keyPressEvent(event);
    adding_ = false;
}

void DropDownEdit::inputMethodEvent(QInputMethodEvent* event) {
    adding_ = !event->commitString().isEmpty();
    FilteredLine::inputMethodEvent(event);
    adding_ = false;
}

void DropDownEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const auto reason = event->reason();
    if (SelectsOnEntry && reason != Qt::MouseFocusReason && reason != Qt::ActiveWindowFocusReason &&
        reason != Qt::PopupFocusReason)
        selectAll();
}

} // namespace Quillane
