#pragma once

#include "platform/forms/grids/TDBGridView.h"

#include <QStyledItemDelegate>

namespace Quillane {

/// Width of the arrow that opens a cell's list.
inline constexpr int GridArrowWidth = 22;

/// Paints a grid's cells: the current one clearly marked, also while the grid has no focus; the
/// arrow in it where the cell has a list; the selected line.
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
