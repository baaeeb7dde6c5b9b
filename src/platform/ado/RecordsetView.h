#pragma once

#include "platform/ado/Recordset.h"
#include "platform/ado/ResultSet.h"
#include "platform/ado/RowWalk.h"
#include "platform/ado/RowWriter.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace Quillane {

/// The rows of one `Open`, shared by a recordset and its clones. Each of these has its own current
/// row, and all see a row that one of them adds or deletes.
class SharedRows {
public:
    SharedRows(ResultSet rows, RowWriter rowWriter);

    void Add(RowWalk& walk) { walks_.push_back(&walk); }
    void Remove(RowWalk& walk) { std::erase(walks_, &walk); }

    const ResultSet& Cells() const { return cells_; }
    const std::vector<bool>& Deleted() const { return deleted_; }

    /// Each of these first sends its statement. If that fails, nothing changes.
    int Insert(const Assignments& assigned);
    void Update(int row, const Assignments& assigned);
    void Delete(int row);

private:
    ResultSet cells_;
    RowWriter writer_;
    std::vector<bool> deleted_; ///< empty if no row is
    std::vector<RowWalk*> walks_;
};

/// The state of an open recordset: its current row among the shared rows, and the assigned values
/// that have not been sent yet.
struct Recordset::View {
    View(std::shared_ptr<SharedRows> sharedRows, int lock);
    ~View() { rows->Remove(walk); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    const ResultSet& Cells() const { return rows->Cells(); }
    bool HasCurrentRow() const { return isAdding || walk.HasRow(); }
    int FieldNumber(std::string_view name) const;
    void CheckField(int field) const;
    Value CurrentValue(int field) const;
    const Value* Assigned(int field) const;
    void Assign(int field, Value value);
    void RefuseReadOnly() const;
    void Send();

    std::shared_ptr<SharedRows> rows;
    int lockType;
    RowWalk walk;
    bool isAdding = false; ///< the current row is new and has not been sent yet
    Assignments assigned;
};

} // namespace Quillane
