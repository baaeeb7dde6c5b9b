#include "Operator.h"

#include "platform/forms/core/Text.h"
#include "platform/runtime/Numbers.h"
#include "support/TestedEngine.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QMessageBox>
#include <QProcess>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <cstdlib>

namespace Quillane::Testing {

namespace {

void RunTool(const QString& program, const QStringList& arguments) {
    if (QProcess::execute(program, arguments) != 0)
        throw Missed("failed: " + FromQt(program + " " + arguments.join(' ')));
}

FrmWeighment* ShownWeighment() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* screen = dynamic_cast<FrmWeighment*>(window);
        if (screen && screen->isVisible())
            return screen;
    }
    return nullptr;
}

/// The modal screen in front or, if there is none, the weighment screen. A box above it is ignored.
const Screen* ScreenAtWork() {
    const auto* screen = dynamic_cast<Screen*>(QApplication::activeModalWidget());
    return screen ? screen : ShownWeighment();
}

bool KeyboardIsReady() {
    const QWidget* active = QApplication::activeWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    return active && (!modal || active == modal);
}

/// True if the display server sends the keys to a window and the window manager agrees.
bool HasServersKeyboard(WId window) {
    const auto saysSo = [window](const QStringList& question) {
        QProcess tool;
        tool.start("xdotool", question);
        tool.waitForFinished();
        return tool.readAllStandardOutput().trimmed() == QByteArray::number(window);
    };
    return saysSo({"getactivewindow"}) && saysSo({"getwindowfocus", "-f"});
}

} // namespace

void Operator::RunInProgram(const std::function<void()>& look) {
    std::exception_ptr failure;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [&] {
            try {
                look();
            } catch (...) {
                failure = std::current_exception();
            }
        },
        Qt::BlockingQueuedConnection);
    if (failure)
        std::rethrow_exception(failure);
}

// ---- input ----

void Operator::Press(const QStringList& keys) {
    UntilKeyboardIsReady();
    RunTool("xdotool", QStringList{"key", "--delay", "0"} + keys);
}

void Operator::Type(const std::string& text) {
    UntilKeyboardIsReady();
    RunTool("xdotool", {"type", "--delay", "0", "--", ToQt(text)});
}

void Operator::WithoutLooking(const QStringList& arguments) {
    RunTool("xdotool", arguments);
}

void Operator::Click(VisualControl& control) {
    QWidget& widget = control.Widget();
    Click(widget, [&] { return widget.rect().center(); });
}

void Operator::Click(QWidget& widget, const std::function<QPoint()>& place) {
    UntilKeyboardIsReady();
    ClickAt(OnDisplay(widget, See(place)));
}

void Operator::ClickInto(VisualControl& control) {
    Click(control);
    UntilActive(control.Name());
}

void Operator::ClickAt(QPoint point) {
    RunTool("xdotool",
            {"mousemove", QString::number(point.x()), QString::number(point.y()), "click", "1"});
}

void Operator::DoubleClickAt(QPoint point) {
    RunTool("xdotool", {"mousemove", QString::number(point.x()), QString::number(point.y()),
                        "click", "--repeat", "2", "--delay", "10", "1"});
}

QPoint Operator::OnDisplay(const QWidget& widget, QPoint place) const {
    return See([&] {
        const QPointF global = widget.mapToGlobal(place);
        return (global * widget.devicePixelRatioF()).toPoint();
    });
}

// The program may believe that it is active a moment before the display server sends it the keys,
// so for a new active window the server is asked too.
void Operator::UntilKeyboardIsReady() {
    Until("the window in front to have the keyboard", KeyboardIsReady);
    const QDeadlineTimer end(Patience);
    const auto inFront = [] {
        const QWidget* window = QApplication::activeWindow();
        return window ? window->winId() : 0;
    };
    while (See(inFront) != keyboard_) {
        const WId window = See(inFront);
        if (HasServersKeyboard(window))
            keyboard_ = window;
        else if (end.hasExpired())
            throw Missed("the display server sends the keys to another window; " +
                         See([this] { return WhatIsSeen(); }));
    }
}

// ---- output ----

void Operator::Until(const std::string& what, const std::function<bool()>& condition) const {
    const QDeadlineTimer end(Patience);
    while (!See(condition)) {
        if (end.hasExpired())
            throw Missed("the wait has timed out: " + what + "; " +
                         See([this] { return WhatIsSeen(); }));
        QThread::msleep(2);
    }
}

void Operator::UntilActive(const std::string& control) const {
    Until("the focus on " + control, [&] {
        const Screen* screen = ScreenAtWork();
        return screen && screen->ActiveControlName() == control;
    });
}

void Operator::UntilInFront(const std::string& title) const {
    Until("the window \"" + title + "\"", [&] {
        return KeyboardIsReady() && FromQt(QApplication::activeWindow()->windowTitle()) == title;
    });
}

std::string Operator::WhatIsSeen() const {
    std::string seen;
    if (const QWidget* window = QApplication::activeWindow())
        seen = "in front \"" + FromQt(window->windowTitle()) + "\"";
    if (const QMessageBox* box = boxes_.Up())
        seen += ", box \"" + FromQt(box->text()) + "\"";
    if (const Screen* screen = ScreenAtWork())
        seen += ", focus on " + screen->ActiveControlName();
    return seen;
}

void Operator::Picture(const std::string& name) const {
    if (const char* folder = std::getenv("QUILLANE_PICTURES"))
        QProcess::execute("import",
                          {"-silent", "-window", "root",
                           QString("%1/%2.png").arg(folder, ToQt(name).replace('/', '-'))});
}

// ---- boxes ----

void Operator::ExpectBox(const std::string& title, const std::string& text) {
    Until("the box \"" + text + "\"", [this] {
        return boxes_.All().size() > answered_ && boxes_.Up() && boxes_.Up()->isActiveWindow();
    });
    const BoxWatch::Seen seen = See([this] { return boxes_.All()[answered_]; });
    EXPECT_EQ(seen.title, title);
    EXPECT_EQ(ComparedWords(seen.text), text);
}

void Operator::Answer(const std::string& title, const std::string& text, const QStringList& keys) {
    ExpectBox(title, text);
    ++answered_;
    Press(keys);
    Until("the box \"" + text + "\" to close",
          [this] { return boxes_.CountUp() == 0 || boxes_.All().size() > answered_; });
}

void Operator::PastLineBoxes(const std::function<void()>& act, const std::string& what,
                             const std::function<bool()>& condition) {
    const auto lineBox = [this]() -> std::size_t {
        const QMessageBox* box = boxes_.Up();
        return box && box->windowTitle() == "Serial line" ? boxes_.All().size() : 0;
    };
    const QDeadlineTimer end(Patience);
    while (!See(condition)) {
        if (end.hasExpired())
            throw Missed("all attempts have failed: " + what + "; " +
                         See([this] { return WhatIsSeen(); }));
        if (const std::size_t up = See(lineBox)) {
            Press({"Return"});
            Until("the line's box to close", [&] { return lineBox() != up; });
        } else {
            act();
            Until(what + ", or a box of the line", [&] { return condition() || lineBox() != 0; });
        }
    }
    answered_ = See([this] { return boxes_.All().size() - boxes_.CountUp(); });
}

void Operator::ForgetBoxes() {
    Until("the boxes to close", [this] { return boxes_.CountUp() == 0; });
    answered_ = See([this] { return boxes_.All().size(); });
}

// ---- the station ----

void Operator::SignIn(const std::string& name, const std::string& password) {
    UntilInFront("Sign in");
    Type(name);
    Press({"Return"});
    Type(password);
    Press({"Return"});
    UntilInFront("Veltrane: Quillane");
}

FrmWeighment& Operator::OpenWeighment() {
    UntilInFront("Veltrane: Quillane");
    Press({"Return"});
    UntilInFront("Weighment for Veltrane");
    return See([this]() -> FrmWeighment& { return Weighment(); });
}

FrmWeighment& Operator::Weighment() const {
    FrmWeighment* screen = ShownWeighment();
    if (!screen)
        throw Missed("no weighment screen is shown; " + WhatIsSeen());
    return *screen;
}

void Operator::UntilReading(int kilograms) const {
    Until("the reading " + std::to_string(kilograms),
          [&] { return Val(Weighment().TxtWeight.Text()) == kilograms; });
}

void Operator::CloseEverything() const {
    const auto closeOne = [] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            box->done(QMessageBox::Yes);
        else if (modal)
            QTimer::singleShot(0, modal, [modal] { modal->close(); });
        return modal != nullptr;
    };
    const QDeadlineTimer end(Patience);
    while (See(closeOne) && !end.hasExpired())
        QThread::msleep(20);
}

} // namespace Quillane::Testing
