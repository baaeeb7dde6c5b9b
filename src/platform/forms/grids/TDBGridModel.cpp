#include "platform/forms/grids/TDBGridModel.h"

#include "platform/forms/core/Text.h"

#include <utility>

namespace Quillane {

void TDBGridModel::AddColumn(GridColumn column) {
    beginResetModel();
    columns_.push_back(std::move(column));
    endResetModel();
}

void TDBGridModel::Reset() {
    beginResetModel();
    rowCount_ = rows_ == nullptr ? 0 : rows_->RowCount();
    endResetModel();
}

bool TDBGridModel::IsStale() const {
    return rows_ != nullptr && rows_->RowCount() != rowCount_;
}

std::string TDBGridModel::Text(int row, int column) const {
    const bool held = rows_ != nullptr && row < rows_->RowCount() && row < rowCount_;
    return held ? rows_->Get(row, column) : std::string();
}

void TDBGridModel::AppendRow() {
    // The empty last line becomes the row, and a new empty one is added below it.
    beginInsertRows({}, rowCount_ + 1, rowCount_ + 1);
    if (rows_->ColumnCount() < ColumnCount())
        rows_->ReDim(rows_->RowCount() - 1, ColumnCount() - 1);
    rows_->AppendRow();
    ++rowCount_;
    endInsertRows();
    emit headerDataChanged(Qt::Vertical, rowCount_ - 1, rowCount_);
}

void TDBGridModel::SetText(int row, int column, std::string_view text) {
    if (row >= rowCount_)
        AppendRow();
    rows_->Set(row, column, text);
    emit dataChanged(index(row, column), index(row, column));
}

void TDBGridModel::DeleteRow(int row) {
    beginRemoveRows({}, row, row);
    rows_->DeleteRow(row);
    --rowCount_;
    endRemoveRows();
    emit headerDataChanged(Qt::Vertical, row, rowCount_);
}

int TDBGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || rows_ == nullptr ? 0 : rowCount_ + 1;
}

int TDBGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount();
}

Qt::ItemFlags TDBGridModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

QVariant TDBGridModel::data(const QModelIndex& index, int role) const {
    const auto& column = columns_.at(static_cast<std::size_t>(index.column()));
    if (role == Qt::DisplayRole && index.column() < rows_->ColumnCount())
        return ToQt(Text(index.row(), index.column()));
    if (role == Qt::TextAlignmentRole && column.kind == TDBGrid::CellKind::Number)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant TDBGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        if (role == Qt::TextAlignmentRole)
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        if (role == Qt::DisplayRole)
            return section == rowCount_ ? QStringLiteral("*") : QString::number(section + 1);
        return {};
    }
    const auto& column = columns_.at(static_cast<std::size_t>(section));
    if (role == Qt::DisplayRole)
        return ToQt(column.caption);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(
            Qt::AlignVCenter |
            (column.kind == TDBGrid::CellKind::Number ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

} // namespace Quillane
