#pragma once

#include <QFrame>

#include <functional>
#include <memory>
#include <optional>

class QTableView;

namespace Quillane {

class RowArray;
class TDBCombo;

/// The rows of a pick list, dropped down below a box or a grid's cell.
///
/// Its window never takes the focus: the line that is typed in keeps the keyboard all the time, so
/// that the screen sees each key once. It closes by itself when the mouse is pressed outside, and
/// when the window it belongs to moves, hides, is blocked by a box or is no longer the active one;
/// what was highlighted is then not taken. It reads the array only while it is open and copies
/// nothing.
class DropDownList : public QFrame {
public:
    /// `anchor`: a press in this widget is no press outside.
    explicit DropDownList(QWidget& anchor);
    ~DropDownList() override;

    /// Drops the rows down below `field` (in global coordinates), looking as `list` is set up.
    /// Does nothing for an empty array.
    void Open(const RowArray& rows, const TDBCombo& list, const QRect& field);
    void Close();
    bool IsOpen() const { return isVisible(); }

    std::optional<int> Highlighted() const;
    void Highlight(std::optional<int> row);
    /// Up, Down, Page Up and Page Down move what is highlighted; other keys give false.
    bool MoveBy(int key);

    /// The operator clicked a row.
    std::function<void(int row)> Chosen;

    /// The row that such a key leads to from `row` among `rowCount` rows.
    static std::optional<int> RowAfter(std::optional<int> row, int key, int rowCount);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class Model;
    class Divider;

    void ApplyLook(const TDBCombo& list);
    void PlaceBelow(const QRect& field, bool emptyRows);
    bool Dismisses(const QObject* watched, const QEvent& event) const;

    QWidget& anchor_;
    std::unique_ptr<Model> model_;
    std::unique_ptr<Divider> divider_;
    QTableView* table_;
};

} // namespace Quillane
