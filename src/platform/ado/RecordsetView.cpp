#include "platform/ado/RecordsetView.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Failure.h"

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

auto FindAssigned(auto& assigned, int field) {
    return std::find_if(assigned.begin(), assigned.end(),
                        [field](const auto& entry) { return entry.first == field; });
}

} // namespace

SharedRows::SharedRows(ResultSet rows, RowWriter rowWriter)
    : cells_(std::move(rows)), writer_(std::move(rowWriter)) {}

int SharedRows::Insert(const Assignments& assigned) {
    writer_.Insert(cells_, assigned);
    const int row = cells_.RowCount();
    cells_.AppendRow();
    for (const auto& [field, value] : assigned)
        cells_.Set(row, field, value);
    for (RowWalk* walk : walks_)
        walk->Include(cells_, row);
    return row;
}

void SharedRows::Update(int row, const Assignments& assigned) {
    writer_.Update(cells_, row, assigned);
    for (const auto& [field, value] : assigned)
        cells_.Set(row, field, value);
}

void SharedRows::Delete(int row) {
    writer_.Delete(cells_, row);
    deleted_.resize(static_cast<std::size_t>(cells_.RowCount()));
    deleted_[static_cast<std::size_t>(row)] = true;
    for (RowWalk* walk : walks_)
        walk->Forget(row);
}

Recordset::View::View(std::shared_ptr<SharedRows> sharedRows, int lock)
    : rows(std::move(sharedRows)), lockType(lock) {
    walk.Show(rows->Cells(), rows->Deleted(), std::nullopt);
    rows->Add(walk);
}

int Recordset::View::FieldNumber(std::string_view name) const {
    const int field = Cells().FieldNumber(name);
    if (field < 0)
        FailAccess(FailureNumber::ItemNotFound,
                   "There is no field named " + std::string(name) + ".");
    return field;
}

void Recordset::View::CheckField(int field) const {
    if (field < 0 || field >= Cells().FieldCount())
        FailAccess(FailureNumber::ItemNotFound);
}

Value Recordset::View::CurrentValue(int field) const {
    if (!HasCurrentRow())
        FailAccess(FailureNumber::NoCurrentRecord);
    if (const Value* value = Assigned(field))
        return *value;
    return isAdding ? Value() : Cells().At(walk.RowAt(walk.Position()), field);
}

const Value* Recordset::View::Assigned(int field) const {
    const auto found = FindAssigned(assigned, field);
    return found == assigned.end() ? nullptr : &found->second;
}

void Recordset::View::Assign(int field, Value value) {
    const auto found = FindAssigned(assigned, field);
    if (found == assigned.end())
        assigned.emplace_back(field, std::move(value));
    else
        found->second = std::move(value);
}

void Recordset::View::RefuseReadOnly() const {
    if (lockType == adLockReadOnly)
        FailAccess(FailureNumber::NotUpdatable);
}

void Recordset::View::Send() {
    if (isAdding) {
        walk.MoveToRow(rows->Insert(assigned));
    } else if (!assigned.empty()) {
        rows->Update(walk.RowAt(walk.Position()), assigned);
    }
    isAdding = false;
    assigned.clear();
}

} // namespace Quillane
