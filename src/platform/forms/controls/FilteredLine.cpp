#include "platform/forms/controls/FilteredLine.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

namespace Quillane {

namespace {

QString Pasted(QClipboard::Mode mode = QClipboard::Clipboard) {
    return QGuiApplication::clipboard()->text(mode);
}

/// The text that a key inserts; empty if it inserts none.
QString TextOf(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste)) {
        // On X11 this key pastes the selection.
        const bool selection = key.key() == Qt::Key_Insert &&
                               key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
        return Pasted(selection ? QClipboard::Selection : QClipboard::Clipboard);
    }
    const QString text = key.text();
    const auto kind = text.isEmpty() ? QChar::Other_Control : text.front().category();
    const bool command = key.modifiers() == Qt::ControlModifier ||
                         key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    const bool enters = kind == QChar::Other_Format || (kind != QChar::Other_Control && !command);
    return enters ? text : QString();
}

QAction* PasteActionOf(const QMenu& menu) {
    for (QAction* action : menu.actions())
        if (action->text().startsWith(QLineEdit::tr("&Paste")))
            return action;
    return nullptr;
}

} // namespace

bool FilteredLine::Refuses(const QString& text, const QString& rest) const {
    return Admits && !text.isEmpty() && !Admits(text, rest);
}

QString FilteredLine::Unselected() const {
    QString rest = text();
    return hasSelectedText() ? rest.remove(selectionStart(), selectionLength()) : rest;
}

void FilteredLine::keyPressEvent(QKeyEvent* event) {
    if (!Refuses(TextOf(*event), Unselected()))
        LateLine::keyPressEvent(event);
}

// Qt inserts committed text into a locked line too.
void FilteredLine::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    if (!Refuses(event->commitString(), Unselected())) {
        LateLine::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent nothing(event->preeditString(), event->attributes());
    LateLine::inputMethodEvent(&nothing);
}

// The middle button pastes the selection.
void FilteredLine::mouseReleaseEvent(QMouseEvent* event) {
    const bool pastes =
        event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
    if (!pastes || !Refuses(Pasted(QClipboard::Selection), text()))
        LateLine::mouseReleaseEvent(event);
}

void FilteredLine::dropEvent(QDropEvent* event) {
    if (!Refuses(event->mimeData()->text(), text())) {
        LateLine::dropEvent(event);
        return;
    }
    event->ignore();
    QDragLeaveEvent left;
    dragLeaveEvent(&left);
}

// Qt's menu, with a Paste that can be refused.
void FilteredLine::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (QAction* action = PasteActionOf(*menu)) {
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] { Paste(); });
    }
    menu->popup(event->globalPos());
}

void FilteredLine::Paste() {
    Settle();
    if (!Refuses(Pasted(), Unselected()))
        paste();
}

} // namespace Quillane
