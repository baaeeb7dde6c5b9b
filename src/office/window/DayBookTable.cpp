#include "office/window/DayBookTable.h"

#include "office/window/PageLook.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillane::Office {

DayBookTable::DayBookTable(CellsModel& model, const std::vector<ColumnHeading>& headings,
                           int hiddenColumn)
    : headings_(headings), view_(new QTableView), below_(new QTableView) {
    view_->setModel(&model);
    below_->setModel(&sums_);
    LookLikeTable(*view_);
    LookLikeTable(*below_);
    ShowBelow(std::vector<Cell>(headings.size()));
    for (QTableView* each : {view_, below_})
        each->setColumnHidden(hiddenColumn, true);
    LayOut();
    view_->viewport()->installEventFilter(this);
    connect(view_->horizontalHeader(), &QHeaderView::sectionResized, below_,
            [this](int column, int, int width) { below_->setColumnWidth(column, width); });
    connect(view_->horizontalScrollBar(), &QScrollBar::valueChanged, below_->horizontalScrollBar(),
            &QScrollBar::setValue);
}

void DayBookTable::LayOut() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(view_, 1);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, view_->verticalScrollBar()->sizeHint().width(), 0);
    row->addWidget(below_);
    column->addLayout(row);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    below_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    below_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    below_->horizontalHeader()->hide();
    below_->setFixedHeight(below_->verticalHeader()->defaultSectionSize() +
                           2 * below_->frameWidth());
    below_->setFocusPolicy(Qt::NoFocus);
    below_->setSelectionMode(QAbstractItemView::NoSelection);
    constexpr int points = 10;
    QFont small = font();
    small.setPointSize(points);
    view_->setFont(small);
    view_->horizontalHeader()->setFont(small);
    small.setBold(true);
    below_->setFont(small);
    QPalette colours = below_->palette();
    colours.setColor(QPalette::Base, QColor(0xDC, 0xEB, 0xD6));
    below_->setPalette(colours);
    setFocusProxy(view_);
}

void DayBookTable::ShowBelow(std::vector<Cell> cells) {
    sums_.Show(headings_, std::move(cells));
}

/// The part of the view that shows cells gets its width last.
bool DayBookTable::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        ShareWidth();
    return QWidget::eventFilter(watched, event);
}

/// The columns share the width in proportion to their headings. If it is too small, they scroll.
void DayBookTable::ShareWidth() {
    int wanted = 0;
    for (int column = 0; column < static_cast<int>(headings_.size()); ++column)
        if (!view_->isColumnHidden(column))
            wanted += headings_[static_cast<std::size_t>(column)].width;
    constexpr double least = 0.7; // of an average character, because most characters are digits
    const double share = std::max(static_cast<double>(view_->viewport()->width() - 2) / wanted,
                                  least * view_->fontMetrics().averageCharWidth());
    for (int column = 0; column < static_cast<int>(headings_.size()); ++column)
        view_->setColumnWidth(
            column, static_cast<int>(share * headings_[static_cast<std::size_t>(column)].width));
}

} // namespace Quillane::Office
