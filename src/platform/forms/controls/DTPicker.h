#pragma once

#include "platform/forms/core/Control.h"
#include "platform/runtime/Date.h"

#include <memory>

namespace Quillane {

/// A date box with the format dd/MM/yyyy and a calendar, which F4 or Alt+Down opens. `Change` runs
/// for each part that the operator changes, and not for a value from code.
///
/// Keys. Digits are typed part by part, with or without separators. Esc in the open calendar closes
/// it and restores the former date; the screen does not receive that key. The screen receives every
/// other key first.
class DTPicker : public VisualControl {
public:
    DTPicker(Screen& screen, std::string name, std::string typeName = "DTPicker");
    ~DTPicker() override;

    Date Value() const;
    void SetValue(Date date);
    std::function<void()> Change;
    QWidget& Widget() override;
    void CommitEdit() override;
    bool HandleKey(int key, int shift) override;
    bool HandleDropDownKey(int key, int shift) override;

private:
    class Edit;
    std::unique_ptr<Edit> edit_;
};

} // namespace Quillane
