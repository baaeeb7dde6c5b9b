#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"
#include "platform/runtime/LongWork.h"

#include <functional>
#include <future>
#include <string>

class QProgressBar;

namespace Quillane {

/// Runs work that waits for a server on another thread, and returns when it has ended. The progress
/// of work that takes longer than a moment is shown, and Esc cancels it: it then ends at its next
/// `Advance`. A failure of the work is thrown here. The work must not use a screen or show a box.
/// False if it was cancelled.
bool RunLongWork(const std::string& title, const std::function<void(LongWork&)>& work);

/// Shows the progress of work until it has ended. Esc, the button (by the mouse or its letter) and
/// the window's close box cancel the work.
class WaitingScreen : public Screen {
public:
    WaitingScreen(const std::string& title, LongWork& work, std::future<void>& end);

    CommandButton BtnCancel{*this, "BtnCancel", "&Cancel (Esc)"};
    Timer TmrLook{*this, "TmrLook", 50};

protected:
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void LayOut();
    void BtnCancel_Click();
    void TmrLook_Tick();
    bool HasEnded() const;

    LongWork& work_;
    std::future<void>& end_;
    Label subtitle_{"One moment, please"};
    Label step_{""};
    QProgressBar* bar_ = nullptr;
};

} // namespace Quillane
