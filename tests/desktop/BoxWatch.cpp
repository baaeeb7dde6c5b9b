#include "BoxWatch.h"

#include "platform/forms/core/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>

#include <algorithm>

namespace Quillane::Testing {

BoxWatch::BoxWatch() {
    QCoreApplication::instance()->installEventFilter(this);
}

BoxWatch::~BoxWatch() {
    QCoreApplication::instance()->removeEventFilter(this);
}

QMessageBox* BoxWatch::Up() const {
    return up_.empty() ? nullptr : up_.back();
}

bool BoxWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide)
        return false;
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (!box)
        return false;
    std::erase(up_, box);
    if (event->type() == QEvent::Hide) {
        sinceLast_.start();
    } else {
        if (sinceLast_.isValid() && (shortestPause_ < 0 || sinceLast_.elapsed() < shortestPause_))
            shortestPause_ = sinceLast_.elapsed();
        all_.push_back({FromQt(box->windowTitle()), FromQt(box->text())});
        up_.push_back(box);
        mostAtOnce_ = std::max(mostAtOnce_, up_.size());
    }
    return false;
}

} // namespace Quillane::Testing
