#pragma once

#include "platform/ado/Filter.h"
#include "platform/ado/ResultSet.h"

#include <optional>
#include <vector>

namespace Quillane {

/// A filter and a current row for rows that several recordsets may share. A list of the shown rows
/// exists only after a filter or a deletion.
class RowWalk {
public:
    int Count() const { return list_ ? static_cast<int>(list_->size()) : all_; }
    /// The index in the copy of the row that is shown at a position.
    int RowAt(int position) const {
        return list_ ? (*list_)[static_cast<std::size_t>(position)] : position;
    }

    int Position() const { return position_; }
    void MoveTo(int position) {
        position_ = position;
        onDeletedRow_ = false;
    }
    /// After a deletion the next row is already current.
    void MoveNext() { MoveTo(onDeletedRow_ ? position_ : position_ + 1); }
    bool OnDeletedRow() const { return onDeletedRow_; }
    bool HasRow() const { return !onDeletedRow_ && position_ < Count(); }
    bool AtEnd() const { return !onDeletedRow_ && position_ >= Count(); }

    /// Shows the rows that match, all without a filter, and moves to the first.
    void Show(const ResultSet& cells, const std::vector<bool>& deleted,
              std::optional<Filter> filter);
    /// Reports that a row was added to the copy or removed from it. The current row does not
    /// change.
    void Include(const ResultSet& cells, int row);
    void Forget(int row);
    /// The end if the row is not shown.
    void MoveToRow(int row);

private:
    int PositionOf(int row) const;

    std::optional<Filter> filter_;
    std::optional<std::vector<int>> list_;
    int all_ = 0;
    int position_ = 0;
    bool onDeletedRow_ = false; ///< the current row is deleted; `position_` is that of the next
};

} // namespace Quillane
