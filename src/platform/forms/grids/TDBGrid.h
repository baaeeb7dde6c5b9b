#pragma once

#include "platform/forms/core/Control.h"
#include "platform/runtime/RowArray.h"

#include <memory>
#include <string>

namespace Quillane {

class TDBCombo;

/// A grid over a RowArray, edited in place, with an empty last line on which the operator adds
/// rows.
///
/// Arrows and the mouse move between cells, F4 or typing opens the list of a cell, F2 starts an
/// edit with a caret. Tab and Enter leave the grid. Ctrl+Delete deletes the current line, Delete a
/// selected line. A pending cell is committed when the grid is left and by `MoveFirst`, `Update`
/// and `CommitEdit`, so that what is shown is what is stored; it is not committed because Qt moves
/// its focus. An arrow key commits an edit that began by typing, and moves on; in an edit that
/// began with F2 it moves the caret. Esc cancels an edit. Right from the last column moves to the
/// first column of the next line, Left from the first column to the line above.
///
/// The first cell committed on the empty last line adds the row; an empty cell adds none. In a cell
/// with a list, the first name that begins with the text is taken; without one the cell keeps its
/// former text. A cell for numbers accepts digits and one point; a text with other characters is
/// refused as a whole.
class TDBGrid : public VisualControl {
public:
    TDBGrid(Screen& screen, std::string name);
    ~TDBGrid() override;

    enum class CellKind { Text, Number };
    void AddColumn(std::string_view caption, int width, CellKind kind = CellKind::Text);
    /// Sets the list that gives the names for a column. The list itself is hidden.
    void SetDropDown(int column, TDBCombo& list);
    int ColumnCount() const;

    /// Binds the grid to an array of the caller. Requires: the array outlives the grid.
    void SetArray(RowArray& rows);
    void ReBind();  ///< reads the array again; the first row becomes current
    void Refresh(); ///< paints again, with the present rows of the array
    void MoveFirst();
    /// After the last row there is no current row, and none is created.
    void MoveNext();
    /// Commits the pending cell and row into the array.
    void Update();

    /// The current row's text in a column; empty if there is no current row.
    /// While a cell is edited: its former text.
    std::string ColumnText(int column) const;
    bool IsEditing() const;
    int Row() const; ///< current row, RowCount() on the empty last line
    /// True if the current cell is one for numbers.
    bool TakesNumbers() const;
    /// The text that the last edit lost because it is not in the list of its cell; otherwise empty.
    std::string RefusedText() const;

    std::function<void()> AfterColUpdate; ///< the new text of a cell is in the array
    /// The operator has changed the array's rows: a committed cell, an added or a deleted line.
    /// Runs before `AfterColUpdate`.
    std::function<void()> Change;

    QWidget& Widget() override;
    QWidget& FocusWidget() override;
    void CommitEdit() override;
    bool HandleKey(int key, int shift) override;

private:
    class View;
    bool HandleKeyOfEdit(int key);
    bool HandleKeyOfCell(int key);
    std::unique_ptr<View> view_;
};

} // namespace Quillane
