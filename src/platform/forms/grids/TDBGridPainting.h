#pragma once

#include "platform/forms/grids/TDBGridView.h"

#include <QStyledItemDelegate>

namespace Quillane {

/// Width of the arrow that opens a cell's list.
inline constexpr int GridArrowWidth = 22;

/// Paints the cells of a grid. The current cell is marked, also while the grid does not have the
/// focus, and has an arrow if it has a list. The selected line is marked.
class TDBGrid::View::Painter : public QStyledItemDelegate {
public:
    explicit Painter(View& view) : view_(view) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void PaintCurrent(QPainter& painter, const QRect& cell) const;

    View& view_;
};

} // namespace Quillane
