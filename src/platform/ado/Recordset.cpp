#include "platform/ado/Recordset.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/RecordsetView.h"
#include "platform/ado/Session.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <utility>

namespace Quillane {

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset::Recordset(ResultSet rows, std::string_view source,
                     const std::shared_ptr<Session>& session, int lockType)
    : view_(std::make_unique<View>(
          std::make_shared<SharedRows>(std::move(rows), RowWriter(session, source)), lockType)) {}

Recordset Recordset::Of(ResultSet rows) {
    return {std::move(rows), {}, nullptr, adLockReadOnly};
}

Recordset::View& Recordset::Opened() const {
    if (!view_)
        FailAccess(FailureNumber::ObjectClosed);
    return *view_;
}

void Recordset::Open(std::string_view source, Connection& connection, int, int lockType, int) {
    if (view_)
        FailAccess(FailureNumber::ObjectOpen);
    ResultSet rows;
    connection.OpenSession().Run(source, {}, rows);
    if (rows.FieldCount() > 0)
        view_ = std::move(Recordset(std::move(rows), source, connection.session_, lockType).view_);
}

void Recordset::Close() {
    Opened();
    view_.reset();
}

int Recordset::State() const {
    return view_ ? adStateOpen : adStateClosed;
}

int Recordset::RecordCount() const {
    return Opened().walk.Count();
}

bool Recordset::Eof() const {
    const View& view = Opened();
    return !view.isAdding && view.walk.AtEnd();
}

int Recordset::Position() const {
    const View& view = Opened();
    return view.isAdding ? view.walk.Count() : view.walk.Position();
}

void Recordset::MoveFirst() {
    Move([](RowWalk& walk) { walk.MoveTo(0); });
}

void Recordset::MoveNext() {
    if (Eof())
        FailAccess(FailureNumber::NoCurrentRecord);
    Move([](RowWalk& walk) { walk.MoveNext(); });
}

void Recordset::MoveLast() {
    Move([](RowWalk& walk) { walk.MoveTo(std::max(walk.Count() - 1, 0)); });
}

void Recordset::SetPosition(int position) {
    if (position < 0 || position > RecordCount())
        FailAccess(FailureNumber::InvalidArgument);
    Move([position](RowWalk& walk) { walk.MoveTo(position); });
}

// A grid that shares the current row answers a move with a move to the same position, which must
// not be answered again.
void Recordset::Move(const std::function<void(RowWalk&)>& move) {
    View& view = Opened();
    const int before = Position();
    const bool wasOnDeletedRow = view.walk.OnDeletedRow();
    view.Send();
    move(view.walk);
    if ((view.walk.Position() != before || wasOnDeletedRow) && Moved)
        Moved();
}

Value Recordset::Fields(std::string_view name) const {
    const View& view = Opened();
    return view.CurrentValue(view.FieldNumber(name));
}

Value Recordset::Fields(int number) const {
    const View& view = Opened();
    view.CheckField(number);
    return view.CurrentValue(number);
}

int Recordset::FieldCount() const {
    return Opened().Cells().FieldCount();
}

const std::string& Recordset::FieldName(int number) const {
    const View& view = Opened();
    view.CheckField(number);
    return view.Cells().FieldName(number);
}

Value Recordset::ValueAt(int position, int field) const {
    const View& view = Opened();
    view.CheckField(field);
    if (position < 0 || position >= view.walk.Count())
        FailAccess(FailureNumber::NoCurrentRecord);
    if (view.walk.HasRow() && !view.isAdding && position == view.walk.Position())
        return view.CurrentValue(field);
    return view.Cells().At(view.walk.RowAt(position), field);
}

void Recordset::SetFilter(std::string_view text) {
    View& view = Opened();
    std::optional<Filter> filter;
    if (!Trim(text).empty())
        filter = Filter::Parse(text, view.Cells());
    view.Send();
    view.walk.Show(view.Cells(), view.rows->Deleted(), std::move(filter));
    if (Moved)
        Moved();
}

void Recordset::Find(std::string_view criterion) {
    View& view = Opened();
    const Filter filter = Filter::ParseComparison(criterion, view.Cells());
    Move([&](RowWalk& walk) {
        int position = 0;
        while (position < walk.Count() && !filter.Fits(view.Cells(), walk.RowAt(position)))
            ++position;
        walk.MoveTo(position);
    });
}

Recordset Recordset::Clone() const {
    const View& view = Opened();
    Recordset clone;
    clone.view_ = std::make_unique<View>(view.rows, view.lockType);
    return clone;
}

void Recordset::AddNew() {
    View& view = Opened();
    view.RefuseReadOnly();
    view.Send();
    view.isAdding = true;
    if (Moved)
        Moved();
}

void Recordset::Collect(std::string_view name, Value value) {
    View& view = Opened();
    view.RefuseReadOnly();
    const int field = view.FieldNumber(name);
    if (!view.HasCurrentRow())
        FailAccess(FailureNumber::NoCurrentRecord);
    view.Assign(field, std::move(value));
}

void Recordset::Update() {
    View& view = Opened();
    const bool wasAdding = view.isAdding;
    view.Send();
    if (wasAdding && Moved)
        Moved();
}

void Recordset::Delete() {
    View& view = Opened();
    view.RefuseReadOnly();
    if (view.isAdding)
        FailAccess(FailureNumber::NotInThisContext);
    if (!view.HasCurrentRow())
        FailAccess(FailureNumber::NoCurrentRecord);
    view.rows->Delete(view.walk.RowAt(view.walk.Position()));
    view.assigned.clear();
}

} // namespace Quillane
