#include "office/daybook/TableModels.h"

#include "platform/forms/core/Text.h"
#include "platform/runtime/Failure.h"

#include <QColor>

#include <algorithm>

namespace Quillane::Office {

// ---- Cells ----

int CellsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Headings().size());
}

QVariant CellsModel::data(const QModelIndex& index, int role) const {
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter |
                        (Headings()[column].isNumber ? Qt::AlignRight : Qt::AlignLeft));
    if (role == Qt::ForegroundRole && IsMarked(index.row()))
        return QColor(0x9A, 0x55, 0x00);
    if (role != Qt::DisplayRole)
        return {};
    const std::vector<Cell>* cells = CellsAt(index.row());
    return cells && column < cells->size() ? ToQt((*cells)[column].Shown()) : QVariant();
}

QVariant CellsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const ColumnHeading& heading = Headings()[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (heading.isNumber ? Qt::AlignRight : Qt::AlignLeft));
    return role == Qt::DisplayRole ? ToQt(heading.WithUnit()) : QVariant();
}

// ---- Arrivals ----

void ArrivalsModel::Show(std::shared_ptr<const DayBook> book) {
    beginResetModel();
    book_ = std::move(book);
    rows_ = book_ ? book_->Count() : 0;
    pages_.clear();
    hasFailed_ = false;
    endResetModel();
}

void ArrivalsModel::TakeMore() {
    if (!book_ || book_->Count() == rows_)
        return;
    beginInsertRows({}, rows_, book_->Count() - 1);
    rows_ = book_->Count();
    endInsertRows();
}

int ArrivalsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

std::size_t ArrivalsModel::RowsHeld() const {
    std::size_t rows = 0;
    for (const Page& page : pages_)
        rows += page.rows.size();
    return rows;
}

const ArrivalsModel::Page& ArrivalsModel::ReadPage(int number) const {
    constexpr std::size_t mostPages = 4;
    Page page{.number = number, .rows = {}};
    for (const Arrival& arrival : book_->Page(number))
        page.rows.push_back(CellsOf(arrival, book_->Names()));
    pages_.push_front(std::move(page));
    if (pages_.size() > mostPages)
        pages_.pop_back();
    return pages_.front();
}

/// Exceptions must not pass through the Qt view.
const ArrivalsModel::Page* ArrivalsModel::PageWith(int row) const {
    const int number = row / DayBook::PageRows;
    const auto known = std::ranges::find(pages_, number, &Page::number);
    if (known != pages_.end())
        return &*known;
    if (hasFailed_)
        return nullptr;
    try {
        return &ReadPage(number);
    } catch (const Failure& failure) {
        hasFailed_ = true;
        if (Failed)
            Failed(failure.Description());
        return nullptr;
    }
}

/// If arrivals have been removed since, the page has fewer rows than before.
const std::vector<Cell>* ArrivalsModel::CellsAt(int row) const {
    const Page* page = PageWith(row);
    const auto index = static_cast<std::size_t>(row % DayBook::PageRows);
    return page && index < page->rows.size() ? &page->rows[index] : nullptr;
}

bool ArrivalsModel::IsMarked(int row) const {
    const std::vector<Cell>* cells = CellsAt(row);
    return cells && std::ranges::count(*cells, Cell::Kind::Note, &Cell::kind) > 0;
}

// ---- Sums ----

void SumsModel::Show(const DayBook& book) {
    beginResetModel();
    rows_.clear();
    for (const NamedSum& sum : book.Sums().By(by_, book.Names()))
        rows_.push_back(CellsOf(sum, by_));
    endResetModel();
}

int SumsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

const std::vector<Cell>* SumsModel::CellsAt(int row) const {
    return &rows_[static_cast<std::size_t>(row)];
}

// ---- The row of totals ----

void BelowModel::Show(const std::vector<ColumnHeading>& headings, std::vector<Cell> cells) {
    beginResetModel();
    headings_ = &headings;
    cells_ = std::move(cells);
    endResetModel();
}

int BelowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

const std::vector<Cell>* BelowModel::CellsAt(int) const {
    return &cells_;
}

} // namespace Quillane::Office
