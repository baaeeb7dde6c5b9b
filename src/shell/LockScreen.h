#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/core/Screen.h"

namespace Quillane {

/// Says that the start waits for whoever holds the database. Esc, the button by the mouse or its
/// letter, and the window's close box cancel the wait; Enter and the blank do not, since they may
/// have been typed ahead.
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

    Label subtitle_{"One moment, please"};
    Label text_{"The database is being used by another station or program, which has not let go of "
                "it yet. The start goes on as soon as it is free."};
};

} // namespace Quillane
