#pragma once

#include "platform/forms/core/Colours.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

class QWidget;

namespace Quillane {

class Screen;

/// Anything on a screen, shown or not. Each control registers itself with its screen when it is
/// constructed, so that the controls of a screen are listed in the order of their declarations.
class Control {
public:
    Control(Screen& screen, std::string name, std::string typeName);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    /// "TextBox", "CheckBox", "TDBCombo" and so on: code that walks the controls compares it.
    const std::string& TypeName() const { return typeName_; }
    Screen& Owner() const { return screen_; }

private:
    Screen& screen_;
    std::string name_;
    std::string typeName_;
};

/// A control that can be seen and can take the focus.
///
/// Focus events. `Validate` runs when the focus is about to leave for another control of the same
/// screen, then `LostFocus`, then the other's `GotFocus`; all before Qt moves anything. None runs
/// for boxes, modal screens, popups or another window becoming active. Disabling or hiding the
/// active control moves on to the next in tab order without `Validate`.
///
/// `KeyDown` is the control's own handler of a key, while the control is active. It runs after the
/// screen's `Form_KeyDown`, unless that has swallowed the key, and swallows the key by setting it
/// to 0. A key whose handling has moved the focus is used up: it never acts on the control that has
/// the focus now.
class VisualControl : public Control {
public:
    using Control::Control;

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// The value that was set. A visible control in a hidden frame is not shown.
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    /// Visible and enabled, and so is every frame around it.
    bool CanTakeFocus() const;

    int TabIndex() const { return tabIndex_; } ///< -1: no place in the tab order
    void SetTabIndex(int index) { tabIndex_ = index; }

    Colour BackColor() const { return backColor_; }
    virtual void SetBackColor(Colour colour);
    Colour ForeColor() const { return foreColor_; }
    virtual void SetForeColor(Colour colour);

    /// Moves the focus at once, through the same sequence as the operator's moves. Fails (5) on a
    /// control that is hidden or disabled.
    void SetFocus();

    std::string ToolTip() const;
    void SetToolTip(std::string_view text);
    /// Name for assistive technology; controls without a caption need one.
    void SetAccessibleName(std::string_view name);

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    std::function<void()> Validate;
    std::function<void(int& key, int shift)> KeyDown;

    /// The widget that is placed in a layout.
    virtual QWidget& Widget() = 0;
    /// The widget that gets Qt's focus.
    virtual QWidget& FocusWidget() { return Widget(); }

    /// Stores a pending edit (the text of a cell) and closes a list that is dropped down. Runs
    /// before the control is left, and before the screen gets a key with Ctrl or Alt that is no
    /// editing key, so that a shortcut uses what is shown.
    virtual void CommitEdit() {}
    /// Runs first, on the active control; true uses the key up before the screen gets it. For a key
    /// that is meant only for what is dropped down, such as Esc in an open calendar.
    virtual bool HandleDropDownKey(int /*key*/, int /*shift*/) { return false; }
    /// True if the press of the mouse that brings the focus does nothing else, so that the
    /// selection made on got-focus is kept.
    virtual bool KeepsFirstPress() const { return false; }
    /// Runs after `KeyDown` and before `Form_KeyPress`, on the active control; true uses the key
    /// up.
    virtual bool HandleKey(int /*key*/, int /*shift*/) { return false; }

protected:
    virtual void ApplyEnabled();
    virtual void ApplyColours();

private:
    friend class Screen;
    bool enabled_ = true;
    bool visible_ = true;
    int tabIndex_ = -1;
    Colour backColor_ = White;
    Colour foreColor_ = Black;
};

/// Sets the tab order of the controls: 0, 1, 2 and so on.
void NumberInTabOrder(std::initializer_list<VisualControl*> controls);

} // namespace Quillane
