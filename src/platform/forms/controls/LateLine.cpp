#include "platform/forms/controls/LateLine.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace Quillane {

void LateLine::Write(const QString& text) {
    if (!awaited_)
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    awaited_ = text;
}

void LateLine::Settle() {
    if (const auto text = std::exchange(awaited_, std::nullopt))
        Show(*text);
}

bool LateLine::event(QEvent* event) {
    Settle();
    return QLineEdit::event(event);
}

} // namespace Quillane
