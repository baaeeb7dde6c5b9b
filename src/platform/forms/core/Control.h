#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QWidget;

namespace Quillane {

class Screen;

/// A 24-bit colour with blue in the high byte: 0xBBGGRR.
using Colour = std::uint32_t;
inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour ClosedGrey = 0xE0E0E0;

/// Anything that stands on a screen, shown or not: the table of a screen's controls is the order in
/// which its members are declared, since each registers itself with its screen when it is made.
class Control {
public:
    Control(Screen& screen, std::string name, std::string typeName);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    /// "TextBox", "CheckBox", "TDBCombo" and so on: what code that walks the controls asks for.
    const std::string& TypeName() const { return typeName_; }
    Screen& Owner() const { return screen_; }

private:
    Screen& screen_;
    std::string name_;
    std::string typeName_;
};

/// A control that is seen and may take the focus.
///
/// Focus events. `Validate` runs when the focus is about to leave for another control of the same
/// screen, then `LostFocus`, then the other's `GotFocus`; all before Qt moves anything. None runs
/// for boxes, modal screens, popups or another window becoming active. Disabling or hiding the
/// active control moves on to the next in tab order without `Validate`.
///
/// `KeyDown` is the control's own share of a key, while it is the active one: it runs after the
/// screen's `Form_KeyDown`, which may have swallowed the key, and swallows it by setting it to 0. A
/// key in whose handling the focus has moved is used up, and never acts on the control that has the
/// focus now.
class VisualControl : public Control {
public:
    using Control::Control;

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// As set; a control in a hidden frame is not seen all the same.
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    /// Seen and enabled, with everything it stands in.
    bool CanTakeFocus() const;

    int TabIndex() const { return tabIndex_; } ///< -1: no place in the tab order
    void SetTabIndex(int index) { tabIndex_ = index; }

    Colour BackColor() const { return backColor_; }
    virtual void SetBackColor(Colour colour);
    Colour ForeColor() const { return foreColor_; }
    virtual void SetForeColor(Colour colour);

    /// Moves the focus here and now, through the same sequence as the operator's moves. Fails (5)
    /// on a control that is hidden or disabled.
    void SetFocus();

    std::string ToolTip() const;
    void SetToolTip(std::string_view text);
    /// Name for assistive technology; controls without a caption need one.
    void SetAccessibleName(std::string_view name);

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    std::function<void()> Validate;
    std::function<void(int& key, int shift)> KeyDown;

    /// What is placed in a layout.
    virtual QWidget& Widget() = 0;
    /// What gets Qt's focus.
    virtual QWidget& FocusWidget() { return Widget(); }

    /// Stores what is still being edited (a cell's pending text) and closes what is dropped down.
    /// Leaving a control commits first, and so does a key with Ctrl or Alt that is no editing key,
    /// before the screen sees it: what is seen is what a shortcut works on.
    virtual void CommitEdit() {}
    /// Runs before everything else, on the active control; true uses the key up, unseen by the
    /// screen. For a key that is meant for what is dropped down alone, as Esc in an open calendar.
    virtual bool HandleDropDownKey(int /*key*/, int /*shift*/) { return false; }
    /// Whether the press that brings the focus is used up by that. The selection that was made on
    /// got-focus then stays.
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
    Colour foreColor_ = 0;
};

} // namespace Quillane
