#pragma once

#include "platform/forms/controls/FilteredLine.h"

#include <functional>

namespace Quillane {

/// The line in which a name is typed, of a pick list or of a grid's cell. It tells added text from
/// removed text, since only what was added at the end is completed.
class DropDownEdit : public FilteredLine {
public:
    explicit DropDownEdit(QWidget* parent);

    /// The operator changed the text; `added` if characters came in at its end.
    std::function<void(bool added)> Edited;

    /// Shows a whole name behind what has been typed, the added part selected, so that typing on
    /// replaces it.
    void Complete(const QString& name);
    /// Shows a text from its beginning; selected, while the operator is in the line.
    void ShowText(const QString& text);

    /// Entering by keyboard or from code selects the text, so that typing replaces it.
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
