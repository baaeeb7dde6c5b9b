#pragma once

#include "office/records/Rows.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include <optional>
#include <vector>

namespace Quillane::Office {

/// The rows of one list, as they were read.
class ListModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    static constexpr int SortRole = Qt::UserRole;

    void Show(Snapshot snapshot);
    /// Requires: `Show` has been called.
    const Snapshot& Known() const { return *known_; }
    const Row& RowAt(int row) const { return known_->rows.Rows()[static_cast<std::size_t>(row)]; }
    /// The position of the row with this key; -1 if there is none.
    int PlaceOfKey(const std::string& key) const;
    /// The text that the search uses: all shown cells of the row, with the case folded.
    const QString& SearchText(int row) const { return texts_[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Column& ColumnAt(int column) const;
    QString Shown(int column, const Row& row) const;
    bool IsRetired(const Row& row) const;

    std::optional<Snapshot> known_;
    std::vector<QString> texts_;
};

/// The rows that contain each word of a search, in any of their cells and in any case.
class ListFilter : public QSortFilterProxyModel {
public:
    explicit ListFilter(ListModel& model);

    void Search(const QString& words);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    ListModel& model_;
    QStringList words_;
};

} // namespace Quillane::Office
