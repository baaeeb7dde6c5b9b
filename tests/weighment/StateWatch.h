#pragma once

#include "weighment/WeighmentFixture.h"

#include <QEvent>
#include <QObject>

#include <cstdio>

namespace Quillane::Testing {

/// Adds changes of the state of a control to a trace, when they happen:
///
///     BtnSave off                      enabled or disabled
///     TxtWeight locked
///     ChkFinalized hidden
///     TxtArrivalId 0xE0E0E0            the background of a text box
///     ChkManualWeight = 0
///
/// Setting a state to its present value is not a change.
class StateWatch : public QObject {
public:
    StateWatch(FrmWeighment& screen, Trace& trace) : screen_(screen), trace_(trace) {
        for (Control* control : screen.Controls()) {
            if (auto* visual = dynamic_cast<VisualControl*>(control)) {
                visual->Widget().installEventFilter(this);
                colours_[visual] = visual->BackColor();
            }
            if (auto* check = dynamic_cast<CheckBox*>(control)) {
                clicks_.emplace_back(check, check->Click);
                check->Click = [this, check, click = check->Click] {
                    trace_.Note(check->Name() + " = " + std::to_string(check->Value()));
                    click();
                };
            }
        }
    }
    ~StateWatch() override {
        for (auto& [check, click] : clicks_)
            check->Click = std::move(click);
    }
    StateWatch(const StateWatch&) = delete;
    StateWatch& operator=(const StateWatch&) = delete;

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* control = screen_.ControlOf(dynamic_cast<QWidget*>(object));
        if (control)
            Look(*control, event->type());
        return false;
    }

private:
    void Look(VisualControl& control, QEvent::Type event) {
        auto* box = dynamic_cast<TextBox*>(&control);
        if (event == QEvent::EnabledChange)
            trace_.Note(control.Name() + (control.Widget().isEnabled() ? " on" : " off"));
        else if (event == QEvent::ReadOnlyChange && box)
            trace_.Note(control.Name() + (box->Locked() ? " locked" : " unlocked"));
        else if (event == QEvent::HideToParent)
            trace_.Note(control.Name() + " hidden");
        else if (event == QEvent::PaletteChange && box && colours_[box] != box->BackColor())
            NoteColour(*box);
    }

    void NoteColour(TextBox& box) {
        colours_[&box] = box.BackColor();
        char colour[16];
        std::snprintf(colour, sizeof colour, " 0x%06X", box.BackColor());
        trace_.Note(box.Name() + colour);
    }

    FrmWeighment& screen_;
    Trace& trace_;
    std::map<const VisualControl*, Colour> colours_;
    std::vector<std::pair<CheckBox*, std::function<void()>>> clicks_;
};

} // namespace Quillane::Testing
