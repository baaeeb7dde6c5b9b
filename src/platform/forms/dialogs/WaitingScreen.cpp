#include "platform/forms/dialogs/WaitingScreen.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Pointer.h"
#include "platform/forms/core/Text.h"

#include <QProgressBar>

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
    : CancelScreen("WaitingScreen", title, "One moment, please"), work_(work), end_(end) {
    TmrLook.Tick = [this] { TmrLook_Tick(); };
    TmrLook_Tick();
}

bool WaitingScreen::HasEnded() const {
    return end_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

void WaitingScreen::Form_Unload(bool& cancel) {
    if (!HasEnded())
        CancelScreen::Form_Unload(cancel);
}

void WaitingScreen::BtnCancel_Click() {
    work_.Cancel();
    BtnCancel.SetEnabled(false);
    TmrLook_Tick();
}

void WaitingScreen::TmrLook_Tick() {
    Text.setText(work_.IsCancelled() ? "Cancelling. Waiting for the answer of the server."
                                     : ToQt(work_.Step()));
    Progress.setRange(0, work_.Parts());
    Progress.setValue(work_.Done());
    if (IsLoaded() && HasEnded())
        Unload();
}

} // namespace Quillane
