#include "platform/runtime/RowArray.h"

#include "platform/runtime/Failure.h"

#include <algorithm>
#include <utility>

namespace Quillane {

void RowArray::Clear() {
    *this = RowArray();
}

void RowArray::ReDim(int lastRow, int lastColumn) {
    if (lastRow < -1 || lastColumn < -1)
        Fail(FailureNumber::SubscriptOutOfRange);
    RowArray resized;
    resized.rows_ = lastRow + 1;
    resized.columns_ = lastColumn + 1;
    resized.cells_.resize(static_cast<std::size_t>(resized.rows_) *
                          static_cast<std::size_t>(resized.columns_));
    for (int row = 0; row < std::min(rows_, resized.rows_); ++row)
        for (int column = 0; column < std::min(columns_, resized.columns_); ++column)
            resized.cells_[resized.Index(row, column)] = std::move(cells_[Index(row, column)]);
    *this = std::move(resized);
}

void RowArray::Set(int row, int column, std::string_view text) {
    cells_[Index(row, column)] = text;
}

const std::string& RowArray::Get(int row, int column) const {
    return cells_[Index(row, column)];
}

void RowArray::AppendRow() {
    ++rows_;
    cells_.resize(cells_.size() + static_cast<std::size_t>(columns_));
}

void RowArray::DeleteRow(int row) {
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(Index(row, 0));
    cells_.erase(first, first + columns_);
    --rows_;
}

std::size_t RowArray::Index(int row, int column) const {
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_)
        Fail(FailureNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
}

} // namespace Quillane
