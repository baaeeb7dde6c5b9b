#include "platform/forms/dialogs/WaitingScreen.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/DialogLook.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

#include <chrono>

namespace Quillane {

namespace {

// Shorter work shows no window.
constexpr std::chrono::milliseconds moment{400};

} // namespace

bool RunLongWork(const std::string& title, const std::function<void(LongWork&)>& work) {
    LongWork shared;
    std::future<void> end = std::async(std::launch::async, [&] { work(shared); });
    bool isLong = false;
    {
        const Hourglass hourglass;
        isLong = end.wait_for(moment) != std::future_status::ready;
    }
    if (isLong)
        WaitingScreen(title, shared, end).ShowModal();
    end.get();
    return !shared.IsCancelled();
}

WaitingScreen::WaitingScreen(const std::string& title, LongWork& work, std::future<void>& end)
    : Screen("WaitingScreen", title), work_(work), end_(end) {
    BtnCancel.Click = [this] { BtnCancel_Click(); };
    BtnCancel.SetTabIndex(0);
    TmrLook.Tick = [this] { TmrLook_Tick(); };
    LayOut();
    TmrLook_Tick();
}

void WaitingScreen::LayOut() {
    bar_ = new QProgressBar;
    bar_->setTextVisible(false);
    step_.setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    AddButton(*buttons, BtnCancel, false);
    auto* column = DialogColumn(*this, ProgramTitle(), subtitle_);
    LookLikeText(step_, 2);
    column->addWidget(&step_);
    column->addWidget(bar_);
    column->addLayout(buttons);
    setFixedWidth(440);
}

bool WaitingScreen::HasEnded() const {
    return end_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void WaitingScreen::Form_Unload(bool& cancel) {
    cancel = !HasEnded();
    if (cancel)
        BtnCancel_Click();
}

void WaitingScreen::Form_KeyDown(int& key, int /*shift*/) {
    if (key == Key::Escape)
        BtnCancel_Click();
    // Enter or a blank that was typed ahead for the screen below must not cancel the work.
    if (key == Key::Escape || key == Key::Return || key == Key::Space)
        key = 0;
}

void WaitingScreen::BtnCancel_Click() {
    work_.Cancel();
    BtnCancel.SetEnabled(false);
    TmrLook_Tick();
}

void WaitingScreen::TmrLook_Tick() {
    step_.setText(work_.IsCancelled() ? "Cancelling: waiting for the answer of the server"
                                      : ToQt(work_.Step()));
    bar_->setRange(0, work_.Parts());
    bar_->setValue(work_.Done());
    if (IsLoaded() && HasEnded())
        Unload();
}

} // namespace Quillane
