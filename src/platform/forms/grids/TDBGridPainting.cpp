#include "platform/forms/grids/TDBGridPainting.h"

#include "platform/forms/core/Screen.h"

#include <QPainter>

#include <algorithm>

namespace Quillane {

namespace {
constexpr int CellMargin = 4;
} // namespace

void TDBGrid::View::Painter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    const bool current = index == view_.currentIndex();
    const bool selected = index.row() == view_.SelectedLine();
    const QPalette& palette = option.palette;
    if (selected)
        painter->fillRect(option.rect, palette.color(QPalette::Active, QPalette::Highlight));
    if (current && !selected)
        PaintCurrent(*painter, option.rect);
    const int arrow = current ? view_.ArrowRect().width() : 0;
    const QRect area = option.rect.adjusted(CellMargin, 0, -std::max(arrow, CellMargin), 0);
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    const QString text = option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                       Qt::ElideRight, area.width());
    const auto group = view_.isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter->setPen(palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(area, static_cast<int>(alignment | Qt::AlignVCenter), text);
}

void TDBGrid::View::Painter::PaintCurrent(QPainter& painter, const QRect& cell) const {
    const bool here = view_.grid_.Owner().ActiveControl() == &view_.grid_;
    const QColor mark = here ? view_.palette().color(QPalette::Active, QPalette::Highlight)
                             : view_.palette().color(QPalette::Mid);
    QColor tint = mark;
    tint.setAlpha(here ? 50 : 40);
    painter.fillRect(cell, tint);
    const int thickness = here ? 2 : 1;
    painter.setPen(QPen(mark, thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(cell.adjusted(thickness / 2, thickness / 2, -1, -1));
    QStyleOption arrow;
    arrow.initFrom(&view_);
    arrow.rect = view_.ArrowRect().adjusted(6, 6, -6, -6);
    if (arrow.rect.isValid())
        view_.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, &view_);
}

} // namespace Quillane
