#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// A two-dimensional array of text; it holds the data of a pick list or of the bag grid. Rows and
/// columns are counted from 0. Errors: subscript out of range (9) for a cell outside the bounds.
class RowArray {
public:
    /// Removes all rows and columns.
    void Clear();

    /// Sets the index of the last row and of the last column; -1 means none. Cells within the old
    /// and the new bounds keep their text; new cells are empty.
    void ReDim(int lastRow, int lastColumn);

    void Set(int row, int column, std::string_view text);
    const std::string& Get(int row, int column) const;

    /// Adds a row of empty cells at the end.
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
