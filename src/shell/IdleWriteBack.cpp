#include "shell/IdleWriteBack.h"

#include "data/Con.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>

namespace Quillane {

namespace {

/// Long enough that the checkpoint does not delay the next load.
constexpr std::chrono::milliseconds idleTime{1500};

QTimer* MakeTimer() {
    auto* timer = new QTimer(QCoreApplication::instance());
    timer->setSingleShot(true);
    timer->setInterval(idleTime);
    QObject::connect(timer, &QTimer::timeout, timer, [timer] {
        const bool isOpen = Con && Con->State() == adStateOpen;
        if (isOpen && !Con->WriteBack())
            timer->start();
    });
    return timer;
}

} // namespace

void WriteBackWhenIdle() {
    static QTimer* const timer = MakeTimer();
    timer->start();
}

} // namespace Quillane
