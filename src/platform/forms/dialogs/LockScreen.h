#pragma once

#include "platform/ado/LockWait.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/core/Screen.h"

#include <memory>
#include <string_view>

namespace Quillane {

/// The window that is shown while a statement waits for the lock of the database. Esc, the button
/// (by mouse or Alt+C) and closing the window cancel the wait. Enter and the space bar do not,
/// because they may have been typed ahead.
class LockScreen : public Screen {
public:
    /// `whatFollows` says what happens after the wait: "The start continues".
    explicit LockScreen(std::string_view whatFollows);
    ~LockScreen() override;

    CommandButton BtnCancel{*this, "BtnCancel", "&Cancel (Esc)"};

    bool IsCancelled = false;

    void setVisible(bool visible) override;

protected:
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void LayOut();
    void BtnCancel_Click();

    Label subtitle_{"Please wait"};
    Label text_;
};

/// Creates a wait for the lock of an embedded database that lasts until the lock is free or the
/// user cancels. It shows the hourglass first, and a `LockScreen` if the wait is longer than a
/// moment. While the window is shown, other windows take no input and are not painted, so that
/// neither can run a statement.
std::unique_ptr<LockWait> WaitWithLockScreen(std::string_view whatFollows);

/// True while a wait shows its window. Timers that run statements must not do so then.
bool IsLockScreenShown();

} // namespace Quillane
