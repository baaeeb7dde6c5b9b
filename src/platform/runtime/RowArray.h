#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// The two-dimensional array of text behind a pick list or the bag grid. Rows and columns count
/// from 0. A cell outside the bounds is a failure (9).
class RowArray {
public:
    /// No rows and no columns.
    void Clear();

    /// Sets the upper bounds, both from 0; a bound of -1 means none. Cells within both the old and
    /// the new bounds keep their text, new cells are empty.
    void ReDim(int lastRow, int lastColumn);

    void Set(int row, int column, std::string_view text);
    const std::string& Get(int row, int column) const;

    /// Adds one row of empty cells at the end.
    void AppendRow();
    void DeleteRow(int row);

    int RowCount() const { return rows_; }
    int ColumnCount() const { return columns_; }

private:
    std::size_t Index(int row, int column) const;

    int rows_ = 0;
    int columns_ = 0;
    std::vector<std::string> cells_; ///< row by row
};

} // namespace Quillane
