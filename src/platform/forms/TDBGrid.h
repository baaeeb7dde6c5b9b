#pragma once

#include "platform/forms/Control.h"
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
/// gives an edit up.
///
/// In a cell with a drop-down, text that the list does not hold is refused: the first name that
/// begins with it is taken, else the cell keeps what it had.
class TDBGrid : public VisualControl {
public:
    TDBGrid(Screen& screen, std::string name);
    ~TDBGrid() override;

    enum class CellKind { Text, WholeNumber };
    void AddColumn(std::string_view caption, int width, CellKind kind = CellKind::Text);
    /// Names for the cells of a column come from this list.
    void SetDropDown(int column, TDBCombo& list);
    int ColumnCount() const;

    /// Binds the grid; the array stays the caller's and must outlive the grid.
    void SetArray(RowArray& rows);
    void ReBind();  ///< reads the array anew; the first row becomes current
    void Refresh(); ///< paints anew
    void MoveFirst();
    /// Past the last row there is no current row, and none is created.
    void MoveNext();
    /// Commits the pending cell and row into the array.
    void Update();

    /// The current row's text in a column; empty where there is no current row.
    std::string ColumnText(int column) const;
    int Row() const; ///< current row, RowCount() on the empty last line

    std::function<void()> AfterColUpdate; ///< a cell's new text stands in the array
    /// The operator is changing the array's rows: an edit, an added or a deleted line.
    std::function<void()> Change;

    QWidget& Widget() override;
    QWidget& FocusWidget() override;
    void CommitEdit() override;
    bool HandleKey(int key, int shift) override;

private:
    class View;
    std::unique_ptr<View> view_;
};

} // namespace Quillane
