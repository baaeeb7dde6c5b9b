#pragma once

#include "platform/forms/core/Control.h"
#include "platform/runtime/RowArray.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

class QString;

namespace Quillane {

/// A pick list: a box with a drop-down of names (column 0 of a RowArray) that carries a hidden
/// column of ids (column 1).
///
/// The current row is an index that the list keeps, because names may occur twice. It is set when a
/// name is chosen or completed, not when a row is highlighted. A text from code makes the first row
/// with that name current, or none. Blanking or clearing makes none current. `RowChange` runs only
/// when the marker moves to a row, not if that row was current already.
///
/// `NotInList` runs when the focus moves or Enter is pressed and no row has the typed text. The
/// text stays, and a `SetFocus` on the list inside the handler keeps the focus. Without a handler
/// the text is cleared. A text from code and an empty text are always accepted.
///
/// Keys. Typing completes the name and opens the list. Up, Down, Page Up and Page Down move the
/// highlight in an open list and select a row in a closed one. F4 and Alt+Down open and close the
/// list. Enter, Tab and any other move of the focus take the highlighted row of an open list; Esc
/// and a press of the mouse outside close it and take nothing. The screen receives every key first,
/// and once.
class TDBCombo : public VisualControl {
public:
    /// Appearance and behaviour of the list; `FormatPickLists` sets them.
    struct Properties {
        bool ColumnHeaders = true;
        int RowDividerStyle = 1;
        int ScrollBars = 4;
        bool AutoCompletion = false;
        bool AutoDropDown = false;
        bool LimitToList = false;
        bool AllowColMove = true;
        bool AllowRowSizing = true;
        bool EmptyRows = true;
        bool AllowColSelect = true;
        bool ExtendRightColumn = false;
        int Appearance = 1;
        int BorderStyle = 0;
    };
    /// A column of the list itself and, at the second level, of its one split.
    struct Column {
        bool Visible = true;
        bool AllowSizing = true;
    };
    struct Split {
        Column Columns[2];
    };

    TDBCombo(Screen& screen, std::string name);
    ~TDBCombo() override;

    Properties Layout;
    Column Columns[2];
    Split Splits[1];

    std::string Text() const;
    void SetText(std::string_view text);

    /// Unbinds the list: no rows are shown until the next `ReBind`.
    void ClearFields();
    void SetArray(std::shared_ptr<RowArray> rows);
    const std::shared_ptr<RowArray>& Array() const;
    /// Shows the present contents of the array.
    void ReBind();

    /// The text of a column of the current row. Errors: 94 if there is no current row.
    std::string ColumnText(int column) const;
    /// The first row, from the beginning, whose cell is exactly `text`.
    std::optional<int> FindRow(int column, std::string_view text) const;

    /// The current-row marker; none when no row is current.
    std::optional<int> Bookmark() const;
    /// Makes a row current and shows its name. With none the text is not changed.
    void SetBookmark(std::optional<int> row);

    std::function<void()> RowChange;
    std::function<void()> NotInList;

    bool IsDroppedDown() const;

    QWidget& Widget() override;
    QWidget& FocusWidget() override;
    void CommitEdit() override;
    bool HandleKey(int key, int shift) override;

protected:
    void ApplyColours() override;

private:
    class Box;

    bool HoldsRow(int row) const;
    void SetCurrent(std::optional<int> row);
    void Take(int row);
    void TakeHighlighted();
    void RefuseUnlisted();
    void TextTyped(bool added);
    std::optional<int> RowTyped(const QString& typed, bool added);
    void DropDown(std::optional<int> highlighted);
    void ToggleDropDown();
    bool MoveChoice(int key);

    std::unique_ptr<Box> box_;
    std::shared_ptr<RowArray> rows_;
    bool bound_ = false; ///< true if the rows are shown
    std::optional<int> current_;
    bool typed_ =
        false; ///< true if the operator typed the text; false if it was written from code or chosen
    bool refusing_ = false;
};

} // namespace Quillane
