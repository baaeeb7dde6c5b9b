#include "platform/ado/RowWalk.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace Quillane {

void RowWalk::Show(const ResultSet& cells, const std::vector<bool>& deleted,
                   std::optional<Filter> filter) {
    filter_ = std::move(filter);
    list_.reset();
    all_ = cells.RowCount();
    if (filter_ || !deleted.empty()) {
        std::vector<int> rows;
        for (int row = 0; row < cells.RowCount(); ++row) {
            const auto index = static_cast<std::size_t>(row);
            const bool isDeleted = index < deleted.size() && deleted[index];
            if (!isDeleted && (!filter_ || filter_->Fits(cells, row)))
                rows.push_back(row);
        }
        list_ = std::move(rows);
    }
    MoveTo(0);
}

void RowWalk::Include(const ResultSet& cells, int row) {
    if (filter_ && !filter_->Fits(cells, row))
        return;
    const bool wasAtEnd = AtEnd();
    if (list_)
        list_->push_back(row);
    else
        ++all_;
    if (wasAtEnd)
        position_ = Count();
}

void RowWalk::Forget(int row) {
    const int position = PositionOf(row);
    if (position < 0)
        return;
    if (!list_) {
        list_.emplace(static_cast<std::size_t>(all_));
        std::iota(list_->begin(), list_->end(), 0);
    }
    list_->erase(list_->begin() + position);
    if (position < position_)
        --position_;
    else if (position == position_)
        onDeletedRow_ = true;
}

void RowWalk::MoveToRow(int row) {
    const int position = PositionOf(row);
    MoveTo(position < 0 ? Count() : position);
}

int RowWalk::PositionOf(int row) const {
    if (!list_)
        return row < all_ ? row : -1;
    const auto found = std::lower_bound(list_->begin(), list_->end(), row);
    return found == list_->end() || *found != row ? -1 : static_cast<int>(found - list_->begin());
}

} // namespace Quillane
