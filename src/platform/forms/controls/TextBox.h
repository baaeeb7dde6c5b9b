#pragma once

#include "platform/forms/core/Control.h"

#include <memory>

namespace Quillane {

/// A box for one line of text.
///
/// `Change` runs once for each edit of the operator, and inside each `SetText` from code, also if
/// the text is the same. `MaxLength` limits what is typed or pasted. Neither `MaxLength` nor
/// `Admits` applies to a text from code, so that no stored figure is cut. The press of the mouse
/// that brings the focus does not move the caret.
class TextBox : public VisualControl {
public:
    enum class Alignment { Left, Right, Centre };

    TextBox(Screen& screen, std::string name);
    ~TextBox() override;

    std::string Text() const;
    void SetText(std::string_view text);

    bool Locked() const;
    void SetLocked(bool locked);
    int MaxLength() const; ///< characters; 0: no limit
    void SetMaxLength(int characters);
    void SetAlignment(Alignment alignment);
    void SetFont(std::string_view family, double points, bool bold);
    void SetPassword(bool password);
    /// Paints the names of control characters at their positions; the text does not change.
    void SetControlSymbols(bool shown);
    void SelectAll();
    std::string SelectedText() const;

    std::function<void()> Change;
    /// Called before text of the operator is inserted: typed, pasted, dropped or committed by an
    /// input method. If it returns false, the whole text is refused. If empty, everything is
    /// inserted.
    std::function<bool(std::string_view text)> Admits;

    QWidget& Widget() override;
    bool KeepsFirstPress() const override { return true; }

protected:
    void ApplyColours() override;

private:
    class Edit;
    std::unique_ptr<Edit> edit_;
};

} // namespace Quillane
