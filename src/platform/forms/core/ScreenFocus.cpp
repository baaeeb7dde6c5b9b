#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"

#include <QGuiApplication>
#include <QMetaObject>
#include <QScopedValueRollback>
#include <QScrollArea>

#include <algorithm>

namespace Quillane {

namespace {

void Run(const std::function<void()>& handler) {
    if (handler)
        handler();
}

constexpr int MarginAround = 4; // pixels between a control brought into view and the edge

// On a screen that is too large for the display. Not while a mouse button is held down: it would
// then be released over something else.
void BringIntoView(QWidget& widget) {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            const QPoint centre = widget.mapTo(area->widget(), widget.rect().center());
            area->ensureVisible(centre.x(), centre.y(), widget.width() / 2 + MarginAround,
                                widget.height() / 2 + MarginAround);
        }
    }
}

} // namespace

std::string Screen::ActiveControlName() const {
    return active_ ? active_->Name() : std::string();
}

VisualControl* Screen::NextInTabOrder(const VisualControl* from, bool forward) const {
    std::vector<VisualControl*> order;
    for (Control* control : controls_) {
        auto* visual = dynamic_cast<VisualControl*>(control);
        if (visual && (visual == from || (visual->TabIndex() >= 0 && visual->CanTakeFocus())))
            order.push_back(visual);
    }
    std::ranges::stable_sort(order, {}, &VisualControl::TabIndex);
    if (!forward)
        std::ranges::reverse(order);
    const auto at = std::ranges::find(order, from);
    if (at != order.end())
        std::ranges::rotate(order, at + 1);
    const bool none = order.empty() || !order.front()->CanTakeFocus();
    return none ? nullptr : order.front();
}

VisualControl* Screen::ControlOf(const QWidget* widget) const {
    while (widget && widget != this) {
        for (Control* control : controls_) {
            auto* visual = dynamic_cast<VisualControl*>(control);
            if (visual && &visual->Widget() == widget)
                return visual;
        }
        const bool completer = widget->isWindow() && widget->focusProxy();
        widget = completer ? widget->focusProxy() : widget->parentWidget();
    }
    return nullptr;
}

void Screen::TakeFirstFocus() {
    if (!active_)
        Arrive(NextInTabOrder(nullptr));
}

// Leaving is decided here, before Qt moves anything. While a control is being left it is still the
// active one. A target that `SetFocus` requests during this time is used instead of the operator's
// target.
void Screen::MoveFocus(VisualControl* target, Move cause) {
    if (leaving_) {
        if (cause == Move::Code)
            wish_ = target;
        return;
    }
    if (target == active_) {
        GiveQtFocus();
        return;
    }
    if (active_ && !RunLeaving(*active_, target, cause))
        return;
    Arrive(target);
}

// False if the focus does not move to another control: the control is not left after all, or the
// screen has been unloaded.
bool Screen::RunLeaving(VisualControl& leaving, VisualControl*& target, Move cause) {
    const std::uint64_t life = life_;
    const QScopedValueRollback leavingNow(leaving_, true);
    const auto settle = [&] {
        target = Reachable(wish_ ? wish_ : target, &leaving);
        wish_ = nullptr;
    };
    wish_ = nullptr;
    leaving.CommitEdit();
    if (Lives(life) && cause != Move::Unable) {
        Observe("Validate", &leaving);
        Run(leaving.Validate);
    }
    if (!Lives(life))
        return false;
    settle();
    if (target == &leaving) {
        GiveQtFocus();
        return false;
    }
    Observe("LostFocus", &leaving);
    Run(leaving.LostFocus);
    if (!Lives(life))
        return false;
    settle();
    return true;
}

// The end of a move whose target can no longer take the focus: the control being left, or the next
// one in tab order.
VisualControl* Screen::Reachable(VisualControl* target, VisualControl* leaving) const {
    if (target && target->CanTakeFocus())
        return target;
    return leaving->CanTakeFocus() ? leaving : NextInTabOrder(leaving);
}

void Screen::Arrive(VisualControl* target) {
    active_ = target;
    GiveQtFocus();
    if (target) {
        BringIntoView(target->Widget());
        Observe("GotFocus", target);
        Run(target->GotFocus);
    } else {
        Observe("Form_GotFocus", nullptr);
        Form_GotFocus();
    }
}

void Screen::MoveOnIfUnable() {
    if (active_ && !leaving_ && !active_->CanTakeFocus())
        MoveFocus(NextInTabOrder(active_), Move::Unable);
}

// A widget inside the active control, such as a cell editor, keeps the focus that it has.
void Screen::GiveQtFocus() {
    // Shows the focus as for keyboard use; Qt clears this as windows are shown and hidden.
    setAttribute(Qt::WA_KeyboardFocusChange);
    QWidget* wanted = active_ ? &active_->FocusWidget() : this;
    const QWidget* has = focusWidget();
    const bool inside = has && active_ && active_->Widget().isAncestorOf(has);
    if (has != wanted && !inside)
        wanted->setFocus(Qt::OtherFocusReason);
}

// Qt moved the focus by itself, for example for assistive technology. Checked when Qt has finished,
// because most of these moves are steps of a move of our own.
void Screen::QtFocusMoved() {
    if (!shown_ || reconciling_)
        return;
    reconciling_ = true;
    QMetaObject::invokeMethod(
        this, [this] { RunEvent([this] { Reconcile(); }); }, Qt::QueuedConnection);
}

void Screen::Reconcile() {
    if (!reconciling_)
        return;
    reconciling_ = false;
    VisualControl* control = shown_ && !leaving_ ? ControlOf(focusWidget()) : nullptr;
    if (!control || control == active_)
        return;
    if (control->CanTakeFocus())
        MoveFocus(control, Move::Operator);
    GiveQtFocus();
}

Screen::Press Screen::PressedOn(const QWidget& widget) {
    Reconcile();
    VisualControl* control = ControlOf(&widget);
    if (!control || !shown_ || !control->CanTakeFocus() ||
        !(control->FocusWidget().focusPolicy() & Qt::ClickFocus))
        return Press::HandedOn;
    const bool brings = control != active_;
    MoveFocus(control, Move::Operator);
    if (active_ != control)
        return Press::Nothing;
    return brings && control->KeepsFirstPress() ? Press::UsedUp : Press::HandedOn;
}

// The screen moves its focus itself and does not use Qt's focus chain.
bool Screen::focusNextPrevChild(bool /*next*/) {
    return false;
}

void Screen::Observe(std::string_view event, const VisualControl* control) const {
    if (FocusObserver)
        FocusObserver(std::string(event) + (control ? " " + control->Name() : std::string()));
}

} // namespace Quillane
