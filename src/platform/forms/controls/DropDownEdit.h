#pragma once

#include "platform/forms/controls/FilteredLine.h"

#include <functional>

namespace Quillane {

/// The line of a pick list or of a grid's cell, in which a name is typed. It distinguishes added
/// from removed text: only text added at the end is completed.
class DropDownEdit : public FilteredLine {
public:
    explicit DropDownEdit(QWidget* parent);

    /// The operator has changed the text. `added` is true if characters were added at its end.
    std::function<void(bool added)> Edited;

    /// Completes the typed text to a whole name. The added part is selected, so that the next typed
    /// character replaces it.
    void Complete(const QString& name);
    /// Shows a text from its beginning, and selects it while the line has the focus.
    void ShowText(const QString& text);

    /// If the focus comes by keyboard or from code, the text is selected, so that typing replaces
    /// it.
    bool SelectsOnEntry = true;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void Show(const QString& text) override;

private:
    bool adding_ = false;
    bool selectsShown_ = false;
};

} // namespace Quillane
