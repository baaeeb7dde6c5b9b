#include "platform/forms/core/Control.h"

#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

namespace Quillane {

Control::Control(Screen& screen, std::string name, std::string typeName)
    : screen_(screen), name_(std::move(name)), typeName_(std::move(typeName)) {
    screen_.controls_.push_back(this);
}

Control::~Control() {
    std::erase(screen_.controls_, this);
    if (screen_.active_ == this)
        screen_.active_ = nullptr;
}

void VisualControl::SetEnabled(bool enabled) {
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    // Qt is informed after the focus has moved on, also if a handler has failed.
    struct Apply {
        VisualControl& control;
        ~Apply() { control.ApplyEnabled(); }
    } apply{*this};
    Owner().MoveOnIfUnable();
}

void VisualControl::SetVisible(bool visible) {
    visible_ = visible;
    struct Apply {
        VisualControl& control;
        ~Apply() { control.Widget().setVisible(control.visible_); }
    } apply{*this};
    Owner().MoveOnIfUnable();
}

// Uses what was set, since for Qt nothing is visible before the screen is shown.
bool VisualControl::CanTakeFocus() const {
    auto& self = const_cast<VisualControl&>(*this);
    if (self.FocusWidget().focusPolicy() == Qt::NoFocus)
        return false;
    const VisualControl* around = this;
    while (around && around->enabled_ && around->visible_)
        around = Owner().ControlOf(const_cast<VisualControl*>(around)->Widget().parentWidget());
    return !around;
}

void VisualControl::SetFocus() {
    if (!Owner().shown_ || !CanTakeFocus())
        Fail(FailureNumber::InvalidCall);
    Owner().MoveFocus(this, Screen::Move::Code);
}

void VisualControl::SetBackColor(Colour colour) {
    backColor_ = colour;
    ApplyColours();
}

void VisualControl::SetForeColor(Colour colour) {
    foreColor_ = colour;
    ApplyColours();
}

std::string VisualControl::ToolTip() const {
    return FromQt(const_cast<VisualControl*>(this)->Widget().toolTip());
}

void VisualControl::SetToolTip(std::string_view text) {
    Widget().setToolTip(ToQt(text));
}

void VisualControl::SetAccessibleName(std::string_view name) {
    Widget().setAccessibleName(ToQt(name));
    FocusWidget().setAccessibleName(ToQt(name));
}

void VisualControl::ApplyEnabled() {
    Widget().setEnabled(enabled_);
}

void VisualControl::ApplyColours() {
    QPalette palette = Widget().palette();
    palette.setColor(QPalette::Base, ToQt(backColor_));
    palette.setColor(QPalette::Text, ToQt(foreColor_));
    palette.setColor(QPalette::WindowText, ToQt(foreColor_));
    Widget().setPalette(palette);
}

void NumberInTabOrder(std::initializer_list<VisualControl*> controls) {
    int index = 0;
    for (VisualControl* control : controls)
        control->SetTabIndex(index++);
}

} // namespace Quillane
