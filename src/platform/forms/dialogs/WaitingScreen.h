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

/// Runs a piece of work that waits for a server on a thread of its own, and returns when it has
/// ended. Work that takes longer than a moment is shown with its progress, and Esc breaks it off:
/// it then ends at its next `Advance`. What it fails with is thrown here. The work must not touch a
/// screen or put up a box.
/// False where it was broken off.
bool RunLongWork(const std::string& title, const std::function<void(LongWork&)>& work);

/// Shows the progress of work until it has ended. Esc, the button by the mouse or its letter, and
/// the window's close box break it off.
class WaitingScreen : public Screen {
public:
    WaitingScreen(const std::string& title, LongWork& work, std::future<void>& end);

    CommandButton BtnBreakOff{*this, "BtnBreakOff", "&Break off (Esc)"};
    Timer TmrLook{*this, "TmrLook", 50};

protected:
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void LayOut();
    void BtnBreakOff_Click();
    void TmrLook_Tick();
    bool HasEnded() const;

    LongWork& work_;
    std::future<void>& end_;
    Label subtitle_{"One moment, please"};
    Label step_{""};
    QProgressBar* bar_ = nullptr;
};

} // namespace Quillane
