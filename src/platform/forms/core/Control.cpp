#include "platform/forms/core/Control.h"

#include "platform/forms/controls/ControlColours.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

#include <QPalette>

namespace Quillane {

QColor ToQt(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

Control::Control(Screen& screen, std::string name, std::string typeName)
    : screen_(screen), name_(std::move(name)), typeName_(std::move(typeName)) {
    screen_.controls_.push_back(this);
}

Control::~Control() {
    std::erase(screen_.controls_, this);
    if (screen_.active_ == this) {
        screen_.active_ = nullptr;
    }
}

void VisualControl::SetEnabled(bool enabled) {
    if (enabled_ == enabled) {
        return;
    }
    enabled_ = enabled;
    // The focus has moved on before Qt hears of it, also if a handler fails on the way.
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

// Goes by what was set, since Qt calls nothing visible before the screen is shown.
bool VisualControl::CanTakeFocus() const {
    auto& self = const_cast<VisualControl&>(*this);
    if (self.FocusWidget().focusPolicy() == Qt::NoFocus) {
        return false;
    }
    const VisualControl* around = this;
    while (around && around->enabled_ && around->visible_) {
        around = Owner().ControlOf(const_cast<VisualControl*>(around)->Widget().parentWidget());
    }
    return !around;
}

void VisualControl::SetFocus() {
    if (!Owner().shown_ || !CanTakeFocus()) {
        Fail(FailureNumber::InvalidCall);
    }
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

} // namespace Quillane
