#pragma once

#include "platform/ado/LockWait.h"
#include "platform/forms/dialogs/CancelScreen.h"

#include <memory>
#include <string_view>

namespace Quillane {

/// The window that is shown while a statement waits for the lock of the database.
class LockScreen : public CancelScreen {
public:
    /// `whatFollows` says what happens after the wait: "The start continues".
    explicit LockScreen(std::string_view whatFollows);

    bool IsCancelled = false;

    void setVisible(bool visible) override;

protected:
    void BtnCancel_Click() override;
};

/// Creates a wait for the lock of an embedded database that lasts until the lock is free or the
/// user cancels. It shows the hourglass first, and a `LockScreen` if the wait is longer than a
/// moment. While the window is shown, other windows take no input and are not painted, so that
/// neither can run a statement.
std::unique_ptr<LockWait> WaitWithLockScreen(std::string_view whatFollows);

/// True while a wait shows its window. Timers that run statements must not do so then.
bool IsLockScreenShown();

} // namespace Quillane
