#pragma once

#include <QFrame>

#include <functional>
#include <memory>
#include <optional>

class QTableView;

namespace Quillane {

class RowArray;
class TDBCombo;

/// The rows of a pick list, in a window below a box or a grid's cell.
///
/// Its window never takes the focus: the line keeps the keyboard, so that the screen receives each
/// key once. The list closes when the mouse is pressed outside, and when the window it belongs to
/// moves, is hidden, is blocked by a box or is no longer active; the highlighted row is not taken
/// then. It reads the array only while it is open and copies nothing.
class DropDownList : public QFrame {
public:
    /// A press in `anchor` is not a press outside.
    explicit DropDownList(QWidget& anchor);
    ~DropDownList() override;

    /// Opens the list below `field` (global coordinates) with the appearance that `list` is set to.
    /// Does nothing if the array is empty.
    void Open(const RowArray& rows, const TDBCombo& list, const QRect& field);
    void Close();
    bool IsOpen() const { return isVisible(); }

    std::optional<int> Highlighted() const;
    void Highlight(std::optional<int> row);
    /// Moves the highlight on Up, Down, Page Up and Page Down; returns false for other keys.
    bool MoveBy(int key);

    /// The operator clicked a row.
    std::function<void(int row)> Chosen;

    /// The row to which this key moves from `row`.
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
