#pragma once

#include "platform/forms/core/Timer.h"
#include "platform/forms/dialogs/CancelScreen.h"
#include "platform/runtime/LongWork.h"

#include <functional>
#include <future>
#include <string>

namespace Quillane {

/// Runs work that waits for a server on another thread, and returns when it has ended. The progress
/// of work that takes longer than a moment is shown, and Esc cancels it: it then ends at its next
/// `Advance`. Returns false if it was cancelled. A failure of the work is thrown here. Requires:
/// the work uses no screen and shows no box.
bool RunLongWork(const std::string& title, const std::function<void(LongWork&)>& work);

/// Shows the progress of work until it has ended.
class WaitingScreen : public CancelScreen {
public:
    WaitingScreen(const std::string& title, LongWork& work, std::future<void>& end);

    Timer TmrLook{*this, "TmrLook", 50};

protected:
    void BtnCancel_Click() override;
    void Form_Unload(bool& cancel) override;

private:
    void TmrLook_Tick();
    bool HasEnded() const;

    LongWork& work_;
    std::future<void>& end_;
};

} // namespace Quillane
