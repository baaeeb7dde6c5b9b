#include "office/window/ListModel.h"

#include "office/records/Texts.h"
#include "platform/forms/core/Text.h"

#include <QColor>

namespace Quillane::Office {

namespace {

const QColor retiredColour(0x8A, 0x8F, 0x91);

} // namespace

void ListModel::Show(Snapshot snapshot) {
    beginResetModel();
    known_ = std::move(snapshot);
    texts_.clear();
    texts_.reserve(known_->rows.Rows().size());
    for (const Row& row : known_->rows.Rows()) {
        QString text;
        for (int column = 0; column < columnCount(); ++column)
            if (ColumnAt(column).kind != CellKind::Flag)
                text += Shown(column, row).toCaseFolded() + '\n';
        texts_.push_back(std::move(text));
    }
    endResetModel();
}

int ListModel::PlaceOfKey(const std::string& key) const {
    const Row* row = known_->rows.WithKey(key);
    return row ? static_cast<int>(row - known_->rows.Rows().data()) : -1;
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !known_)
        return 0;
    return static_cast<int>(known_->rows.Described().columns.size());
}

const Column& ListModel::ColumnAt(int column) const {
    return known_->rows.Described().columns[static_cast<std::size_t>(column)];
}

QString ListModel::Shown(int column, const Row& row) const {
    return ToQt(known_->ShownCell(static_cast<std::size_t>(column), row));
}

bool ListModel::IsRetired(const Row& row) const {
    const int inUse = known_->rows.Described().inUse;
    return inUse >= 0 && row[static_cast<std::size_t>(inUse)] == "0";
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const Row& row = RowAt(index.row());
    const Column& column = ColumnAt(index.column());
    const bool isFlag = column.kind == CellKind::Flag;
    const QString shown = Shown(index.column(), row);
    switch (role) {
    case Qt::DisplayRole:
        return isFlag ? QString(shown == "1" ? "Yes" : "-") : shown;
    case SortRole:
        return column.kind == CellKind::Number ? QVariant(shown.toLongLong()) : QVariant(shown);
    case Qt::TextAlignmentRole:
        if (isFlag)
            return int(Qt::AlignCenter);
        return int(Qt::AlignVCenter | Qt::AlignLeft);
    case Qt::ForegroundRole:
        return IsRetired(row) ? QVariant(retiredColour) : QVariant();
    default:
        return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= columnCount())
        return {};
    const CellKind kind = ColumnAt(section).kind;
    if (role == Qt::DisplayRole)
        return ToQt(ColumnAt(section).caption);
    if (role == Qt::TextAlignmentRole && kind == CellKind::Flag)
        return int(Qt::AlignCenter);
    return {};
}

ListFilter::ListFilter(ListModel& model) : model_(model) {
    setSourceModel(&model);
    setSortRole(ListModel::SortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    setSortLocaleAware(true);
}

void ListFilter::Search(const QString& words) {
    words_ = words.toCaseFolded().split(' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

bool ListFilter::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    const QString& text = model_.SearchText(row);
    return std::ranges::all_of(words_, [&](const QString& word) { return text.contains(word); });
}

} // namespace Quillane::Office
