#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/Label.h"
#include "platform/forms/core/Screen.h"

#include <string>
#include <string_view>

class QProgressBar;

namespace Quillane {

/// The window of a wait: a text, a progress bar, and a button that cancels the wait. Esc, the
/// button (by the mouse or Alt+C) and closing the window cancel it. Enter and the space bar do not,
/// because they may have been typed ahead for the screen below. The owner of the window closes it.
class CancelScreen : public Screen {
public:
    CancelScreen(std::string_view name, const std::string& title, std::string_view subtitle);
    ~CancelScreen() override;

    CommandButton BtnCancel{*this, "BtnCancel", "&Cancel (Esc)"};

protected:
    /// Called for each request to cancel.
    virtual void BtnCancel_Click() = 0;

    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;

    Label Text{""};
    QProgressBar& Progress;

private:
    void LayOut();

    Label subtitle_;
};

} // namespace Quillane
