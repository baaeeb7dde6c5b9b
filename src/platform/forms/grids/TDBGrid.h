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
/// Arrows and the mouse move between cells, F4 or typing opens a cell's list, F2 edits with the
/// caret. Tab and Enter leave the grid. Ctrl+Delete on the current line, or Delete on a selected
/// line, deletes it. A pending cell is committed by leaving the grid, by `MoveFirst`, `Update` and
/// `CommitEdit`, and never because Qt's focus went: what is seen is what is stored. An edit begun
/// by typing is committed by an arrow key, which moves on; one begun with F2 keeps the arrows. Esc
/// gives an edit up. Right from the last column goes on to the next line's first, Left from the
/// first column back to the line above.
///
/// The first cell committed on the empty last line adds the row; an empty cell adds none. In a cell
/// with a drop-down, text that the list does not hold is refused: the first name that begins with
/// it is taken, else the cell keeps what it had. A cell for numbers takes digits and one point; a
/// text that holds anything else stays out whole.
class TDBGrid : public VisualControl {
public:
    TDBGrid(Screen& screen, std::string name);
    ~TDBGrid() override;

    enum class CellKind { Text, Number };
    void AddColumn(std::string_view caption, int width, CellKind kind = CellKind::Text);
    /// Names for the cells of a column come from this list, which is itself no longer seen.
    void SetDropDown(int column, TDBCombo& list);
    int ColumnCount() const;

    /// Binds the grid; the array stays the caller's and must outlive the grid.
    void SetArray(RowArray& rows);
    void ReBind();  ///< reads the array anew; the first row becomes current
    void Refresh(); ///< paints again, with the rows that the array has now
    void MoveFirst();
    /// Past the last row there is no current row, and none is created.
    void MoveNext();
    /// Commits the pending cell and row into the array.
    void Update();

    /// The current row's text in a column; empty where there is no current row.
    /// While a cell is being edited: what stood in it before.
    std::string ColumnText(int column) const;
    bool IsEditing() const;
    int Row() const; ///< current row, RowCount() on the empty last line
    /// The current cell is one for numbers.
    bool TakesNumbers() const;
    /// What the last edit lost, since the list of its cell does not hold it; empty otherwise.
    std::string RefusedText() const;

    std::function<void()> AfterColUpdate; ///< a cell's new text stands in the array
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
