#pragma once

#include "platform/ado/Filter.h"
#include "platform/ado/ResultSet.h"

#include <optional>
#include <vector>

namespace Quillane {

/// A filter and a current row on rows that several recordsets may share. Showing every row takes
/// no memory; a list of the shown ones stands only behind a filter or a deletion.
class RowWalk {
public:
    int Count() const { return list_ ? static_cast<int>(list_->size()) : all_; }
    /// The row in the copy that is shown at a position.
    int RowAt(int position) const {
        return list_ ? (*list_)[static_cast<std::size_t>(position)] : position;
    }

    int Position() const { return position_; }
    void MoveTo(int position) {
        position_ = position;
        onDeletedRow_ = false;
    }
    /// After a deletion the row behind has come up already.
    void MoveNext() { MoveTo(onDeletedRow_ ? position_ : position_ + 1); }
    bool OnDeletedRow() const { return onDeletedRow_; }
    bool HasRow() const { return !onDeletedRow_ && position_ < Count(); }
    bool AtEnd() const { return !onDeletedRow_ && position_ >= Count(); }

    /// Shows the rows that fit, all where there is no filter, and stands on the first.
    void Show(const ResultSet& cells, const std::vector<bool>& deleted,
              std::optional<Filter> filter);
    /// A row has been added to the copy, or has left it. The walk stays where it is.
    void Include(const ResultSet& cells, int row);
    void Forget(int row);
    /// The end where the row is not shown.
    void MoveToRow(int row);

private:
    int PositionOf(int row) const;

    std::optional<Filter> filter_;
    std::optional<std::vector<int>> list_;
    int all_ = 0;
    int position_ = 0;
    bool onDeletedRow_ = false; ///< the current row is gone; `position_` is the one behind it
};

} // namespace Quillane
