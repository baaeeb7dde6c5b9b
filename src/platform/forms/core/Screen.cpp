#include "platform/forms/core/Screen.h"

#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Interruption.h"
#include "platform/forms/core/ShownScreens.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/core/Timer.h"
#include "platform/runtime/Failure.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace Quillane {

namespace {

constexpr Qt::WindowFlags PlainFrame = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                       Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

void RunTimers(const std::vector<Control*>& controls, void (*run)(Timer&)) {
    for (Control* control : controls)
        if (auto* timer = dynamic_cast<Timer*>(control))
            run(*timer);
}

// A window that is maximised for the second time gets the size back that Qt has painted before. Qt
// then paints only the area of its normal size, and leaves the former picture in the rest.
void Repaint(QWidget& window) {
    for (QWidget* part : window.findChildren<QWidget*>())
        part->update();
}

} // namespace

std::vector<Screen*>& ShownScreens() {
    static std::vector<Screen*> screens;
    return screens;
}

Screen::Screen(std::string name, std::string_view caption)
    : QDialog(nullptr, PlainFrame), name_(std::move(name)) {
    setObjectName(ToQt(name_));
    setWindowTitle(ToQt(caption));
}

Screen::~Screen() {
    std::erase(ShownScreens(), this);
}

void Screen::SetOpensMaximized() {
    opensMaximized_ = true;
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
}

void Screen::Load() {
    if (loaded_)
        return;
    loaded_ = true;
    ++life_;
    RunTimers(controls_, [](Timer& timer) { timer.ScreenIsLoaded(true); });
    try {
        Form_Load();
    } catch (...) {
        Leave();
        throw;
    }
}

void Screen::Show() {
    if (shown_) {
        raise();
        activateWindow();
        return;
    }
    Load();
    if (loaded_) {
        setWindowModality(Qt::NonModal);
        Appear(nullptr);
    }
}

void Screen::ShowModal(Screen* owner) {
    if (shown_)
        Fail(FailureNumber::InvalidCall);
    Interruption interruption;
    interruption.Awaits(*this);
    Load();
    if (!loaded_)
        return;
    const std::uint64_t life = life_;
    QEventLoop loop;
    loop_ = &loop;
    setWindowModality(Qt::ApplicationModal);
    interruption.Shows();
    Appear(owner ? owner : interruption.Below());
    if (Lives(life))
        loop.exec();
    loop_ = nullptr;
}

void Screen::Appear(QWidget* owner) {
    shown_ = true;
    ShownScreens().push_back(this);
    winId();
    windowHandle()->setTransientParent(owner ? owner->windowHandle() : nullptr);
    // The form has the focus until it is shown; otherwise Qt gives it to a control that Qt chooses.
    setFocus(Qt::OtherFocusReason);
    if (opensMaximized_) {
        showMaximized();
    } else {
        Centre();
        show();
    }
    activateWindow();
    RunEvent([this] { TakeFirstFocus(); });
}

void Screen::Centre() {
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    const QScreen* display = QGuiApplication::primaryScreen();
    if (!display)
        return;
    const QRect available = display->availableGeometry();
    const QPoint corner = available.center() - rect().center();
    move(std::max(corner.x(), available.left()), std::max(corner.y(), available.top()));
}

bool Screen::Unload() {
    if (!loaded_)
        return true;
    if (unloading_)
        return false;
    const QScopedValueRollback unloading(unloading_, true);
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel)
        return false;
    Leave();
    return true;
}

void Screen::Leave() {
    loaded_ = false;
    shown_ = false;
    ++life_;
    active_ = nullptr;
    std::erase(ShownScreens(), this);
    RunTimers(controls_, [](Timer& timer) { timer.ScreenIsLoaded(false); });
    hide();
    if (loop_)
        loop_->quit();
}

void Screen::DoEvents() {
    const std::uint64_t life = life_;
    QCoreApplication::processEvents();
    if (life != life_)
        throw ScreenGone();
}

void Screen::closeEvent(QCloseEvent* event) {
    bool unloaded = false;
    RunEvent([&] { unloaded = Unload(); });
    event->setAccepted(unloaded);
}

void Screen::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && shown_ && isActiveWindow())
        GiveQtFocus();
}

void Screen::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (loaded_)
        RunEvent([this] { Form_Resize(); });
    if (opensMaximized_)
        Repaint(*this);
}

void Screen::reject() {
    close();
}

} // namespace Quillane
