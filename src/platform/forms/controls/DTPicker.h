#pragma once

#include "platform/forms/core/Control.h"
#include "platform/runtime/Date.h"

#include <memory>

namespace Quillane {

/// A date box, shown dd/MM/yyyy, with a calendar that F4 or Alt+Down opens. `Change` runs for the
/// operator only, with each part that he changes: assigning the value from code is no change.
///
/// Keys. Digits are typed part by part, with or without separators. Esc in the open calendar closes
/// it and brings the day back that stood there before; the screen does not see that key. Every
/// other key is the screen's first.
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
