#pragma once

#include "platform/forms/core/Control.h"

#include <memory>
#include <string>
#include <vector>

namespace Quillane {

/// A drop-down list of fixed texts. Typing only searches for an entry.
class ComboBox : public VisualControl {
public:
    ComboBox(Screen& screen, std::string name, const std::vector<std::string>& items = {});
    ~ComboBox() override;

    int ListIndex() const; ///< -1: none
    void SetListIndex(int index);
    int ListCount() const;
    std::string Text() const; ///< the text of the entry, blanks included
    /// Selects the first entry of this text; a text that is not listed fails (5).
    void SetText(std::string_view text);
    std::function<void()>
        Click; ///< runs when another entry is selected, by the operator or from code
    QWidget& Widget() override;
    void CommitEdit() override;

private:
    class Box;
    std::unique_ptr<Box> box_;
};

} // namespace Quillane
