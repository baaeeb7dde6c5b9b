#pragma once

#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"

#include <functional>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// A small screen that logs its events: three boxes, a frame with a box in it and a button, in the
/// tab order First, Second, Third, InFrame, BtnGo.
class TrialScreen : public Screen {
public:
    explicit TrialScreen(std::string name = "Trial");

    TextBox Third{*this, "Third"};
    TextBox First{*this, "First"};
    TextBox Second{*this, "Second"};
    Frame Around{*this, "Around", "Around"};
    TextBox InFrame{*this, "InFrame"};
    CommandButton BtnGo{*this, "BtnGo", "&Go"};

    /// Focus events, keys ("KeyDown 13 0", "KeyPress 97") and the form's own events, in order.
    std::vector<std::string> Log;
    bool LogKeys = false;
    bool LogModifiers = false; ///< also the presses of Shift, Ctrl and Alt themselves

    std::function<void()> OnLoad;
    std::function<void(bool&)> OnUnload;
    std::function<void(int&, int)> OnKeyDown;
    std::function<void(int&)> OnKeyPress;

    /// The log since the last call.
    std::vector<std::string> Taken();

protected:
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void Form_KeyDown(int& key, int shift) override;
    void Form_KeyPress(int& character) override;
};

using Events = std::vector<std::string>;

} // namespace Quillane::Testing
