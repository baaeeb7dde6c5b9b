#pragma once

#include "platform/forms/Control.h"
#include "platform/runtime/Date.h"

#include <memory>

namespace Quillane {

/// A date box, shown dd/MM/yyyy, with a calendar that F4 or Alt+Down opens. `Change` runs for the
/// operator only: assigning the value from code is no change.
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

private:
    class Edit;
    std::unique_ptr<Edit> edit_;
};

} // namespace Quillane
