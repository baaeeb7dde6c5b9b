#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/core/Screen.h"

namespace Quillane {

/// The window that is shown while the start waits for the lock of the database. Esc, the button
/// (by mouse or Alt+C) and closing the window cancel the wait. Enter and the space bar do not,
/// because they may have been typed ahead.
class LockScreen : public Screen {
public:
    LockScreen();
    ~LockScreen() override;

    CommandButton BtnCancel{*this, "BtnCancel", "&Cancel (Esc)"};

    bool IsCancelled = false;

protected:
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

private:
    void LayOut();
    void BtnCancel_Click();

    Label subtitle_{"Please wait"};
    Label text_{
        "Another station or program has locked the database. The start continues as soon as "
        "the lock is released."};
};

} // namespace Quillane
