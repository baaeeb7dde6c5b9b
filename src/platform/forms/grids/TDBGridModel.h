#pragma once

#include "platform/forms/grids/TDBGrid.h"

#include <QAbstractTableModel>

#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

struct GridColumn {
    std::string caption;
    int width = 0;
    TDBGrid::CellKind kind = TDBGrid::CellKind::Text;
    TDBCombo* list = nullptr; ///< names of its cells
};

/// The array of a grid, with an empty line at its end, as a Qt model. It copies nothing. Rows that
/// code adds or removes are visible after the next `Reset`; until then the model is stale.
class TDBGridModel : public QAbstractTableModel {
public:
    void Bind(RowArray* rows) { rows_ = rows; }
    void AddColumn(GridColumn column);
    void Reset();
    /// True if the rows of the array are not those that are shown.
    bool IsStale() const;

    GridColumn& Column(int column) { return columns_.at(static_cast<std::size_t>(column)); }
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    /// The number of rows, without the empty last line.
    int RowCount() const { return rowCount_; }
    /// Empty on the empty last line.
    std::string Text(int row, int column) const;
    /// A text on the empty last line adds the row.
    void SetText(int row, int column, std::string_view text);
    void DeleteRow(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void AppendRow();

    RowArray* rows_ = nullptr;
    std::vector<GridColumn> columns_;
    int rowCount_ = 0;
};

} // namespace Quillane
