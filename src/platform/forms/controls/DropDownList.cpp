#include "platform/forms/controls/DropDownList.h"

#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Text.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillane {

namespace {
constexpr int RowsShown = 12;
}

class DropDownList::Model : public QAbstractTableModel {
public:
    void Show(const RowArray* rows) {
        beginResetModel();
        rows_ = rows;
        count_ = rows == nullptr ? 0 : rows->RowCount();
        endResetModel();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }

    QVariant data(const QModelIndex& index, int role) const override {
        const bool held = rows_ != nullptr && index.row() < rows_->RowCount() &&
                          index.column() < rows_->ColumnCount();
        if (!held || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
            return {};
        return ToQt(rows_->Get(index.row(), index.column()));
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical || role != Qt::DisplayRole)
            return {};
        return section == 0 ? QStringLiteral("Name") : QStringLiteral("Id");
    }

private:
    const RowArray* rows_ = nullptr;
    int count_ = 0;
};

/// Draws the highlighted row as highlighted also while the window is not active, and the divider
/// below each row if the list has one.
class DropDownList::Divider : public QStyledItemDelegate {
public:
    int style = 0;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        row.state.setFlag(QStyle::State_HasFocus, false);
        row.state.setFlag(QStyle::State_Active, true);
        row.palette.setCurrentColorGroup(QPalette::Active);
        QStyledItemDelegate::paint(painter, row, index);
        if (style == 0)
            return;
        painter->setPen(style == 1 ? option.palette.color(QPalette::Text)
                                   : option.palette.color(QPalette::Window).darker(115));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }
};

DropDownList::DropDownList(QWidget& anchor)
    : QFrame(&anchor, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      anchor_(anchor), model_(std::make_unique<Model>()), divider_(std::make_unique<Divider>()),
      table_(new QTableView(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(table_);
    table_->setFocusPolicy(Qt::NoFocus);
    table_->setFrameShape(QFrame::NoFrame);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setItemDelegate(divider_.get());
    table_->setModel(model_.get());
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        const int row = index.row();
        RunEvent([this, row] {
            if (Chosen)
                Chosen(row);
        });
    });
}

DropDownList::~DropDownList() {
    Close();
    table_->setModel(nullptr);
}

void DropDownList::Open(const RowArray& rows, const TDBCombo& list, const QRect& field) {
    if (rows.RowCount() == 0)
        return;
    setFont(anchor_.font());
    QPalette edge = anchor_.palette();
    edge.setColor(QPalette::WindowText, edge.color(QPalette::Window).darker(160));
    setPalette(edge);
    model_->Show(&rows);
    ApplyLook(list);
    PlaceBelow(field, list.Layout.EmptyRows);
    if (!IsOpen())
        qApp->installEventFilter(this);
    show();
}

void DropDownList::Close() {
    hide();
}

void DropDownList::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    qApp->removeEventFilter(this);
    model_->Show(nullptr);
}

std::optional<int> DropDownList::Highlighted() const {
    const QModelIndex index = table_->currentIndex();
    return IsOpen() && index.isValid() ? std::optional(index.row()) : std::nullopt;
}

void DropDownList::Highlight(std::optional<int> row) {
    if (!row) {
        table_->setCurrentIndex({});
        table_->clearSelection();
        return;
    }
    table_->setCurrentIndex(model_->index(*row, 0));
    table_->scrollTo(table_->currentIndex());
}

bool DropDownList::MoveBy(int key) {
    const auto row = RowAfter(Highlighted(), key, model_->rowCount({}));
    if (row)
        Highlight(row);
    return row.has_value();
}

std::optional<int> DropDownList::RowAfter(std::optional<int> row, int key, int rowCount) {
    const int step = key == Key::Up         ? -1
                     : key == Key::Down     ? 1
                     : key == Key::PageUp   ? 1 - RowsShown
                     : key == Key::PageDown ? RowsShown - 1
                                            : 0;
    if (step == 0 || rowCount == 0)
        return std::nullopt;
    return row ? std::clamp(*row + step, 0, rowCount - 1) : 0;
}

void DropDownList::ApplyLook(const TDBCombo& list) {
    const auto& set = list.Layout;
    table_->setAccessibleName(anchor_.accessibleName());
    setFrameShape(set.BorderStyle == 0 ? QFrame::NoFrame : QFrame::Box);
    setFrameShadow(set.Appearance == 0 ? QFrame::Plain : QFrame::Raised);
    divider_->style = set.RowDividerStyle;
    const auto bar = [&](int flag) {
        return (set.ScrollBars == 4 || (set.ScrollBars & flag) != 0) ? Qt::ScrollBarAsNeeded
                                                                     : Qt::ScrollBarAlwaysOff;
    };
    table_->setHorizontalScrollBarPolicy(bar(1));
    table_->setVerticalScrollBarPolicy(bar(2));
    QHeaderView& columns = *table_->horizontalHeader();
    columns.setVisible(set.ColumnHeaders);
    columns.setSectionsMovable(set.AllowColMove);
    columns.setSectionsClickable(set.AllowColSelect);
    columns.setStretchLastSection(set.ExtendRightColumn);
    for (int column = 0; column < 2; ++column) {
        const auto& own = list.Columns[column];
        const auto& split = list.Splits[0].Columns[column];
        table_->setColumnHidden(column, !own.Visible || !split.Visible);
        columns.setSectionResizeMode(column, own.AllowSizing && split.AllowSizing
                                                 ? QHeaderView::Interactive
                                                 : QHeaderView::Fixed);
    }
    QHeaderView& rows = *table_->verticalHeader();
    rows.setVisible(set.AllowRowSizing);
    rows.setSectionResizeMode(set.AllowRowSizing ? QHeaderView::Interactive : QHeaderView::Fixed);
    rows.setDefaultSectionSize(fontMetrics().height() + 10);
}

void DropDownList::PlaceBelow(const QRect& field, bool emptyRows) {
    const int rows = emptyRows ? RowsShown : std::min(RowsShown, model_->rowCount({}));
    int height = rows * table_->verticalHeader()->defaultSectionSize() + 2 * frameWidth();
    if (!table_->horizontalHeader()->isHidden())
        height += table_->horizontalHeader()->sizeHint().height();
    const QRect available = anchor_.screen()->availableGeometry();
    const int below = available.bottom() - field.bottom();
    const int above = field.top() - available.top();
    // If it does not fit on either side, it is shortened to the larger one, so that the line stays
    // visible.
    const bool opensBelow = height <= below || below >= above;
    height = std::min(height, opensBelow ? below : above);
    const int top = opensBelow ? field.bottom() + 1 : field.top() - height;
    setGeometry(field.left(), top, field.width(), height);
}

bool DropDownList::Dismisses(const QObject* watched, const QEvent& event) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr)
        return false;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::NonClientAreaMouseButtonPress:
        return widget != this && !isAncestorOf(widget) && widget->window() != this &&
               widget != &anchor_ && !anchor_.isAncestorOf(widget);
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        return widget == anchor_.window();
    case QEvent::Hide:
        return widget == &anchor_ || widget == anchor_.window();
    default:
        return false;
    }
}

bool DropDownList::eventFilter(QObject* watched, QEvent* event) {
    if (Dismisses(watched, *event))
        Close();
    return false;
}

} // namespace Quillane
