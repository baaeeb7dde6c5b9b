#include "platform/ado/ResultSet.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Text.h"

#include <utility>

namespace Quillane {

namespace {

std::int64_t DayNumber(Date date) {
    return std::chrono::sys_days(date).time_since_epoch().count();
}

Date DateOf(std::int64_t dayNumber) {
    return std::chrono::sys_days(std::chrono::days(dayNumber));
}

} // namespace

void ResultSet::SetColumns(std::vector<std::string> names) {
    names_ = std::move(names);
    stride_ = names_.size() * (slot + 1);
}

int ResultSet::FieldNumber(std::string_view name) const {
    for (std::size_t field = 0; field < names_.size(); ++field)
        if (EqualIgnoringCase(names_[field], name))
            return static_cast<int>(field);
    return -1;
}

void ResultSet::AddDate(Date date) {
    const std::int64_t dayNumber = DayNumber(date);
    Add(Kind::Day, &dayNumber);
}

void ResultSet::Clear() {
    cells_.Clear();
    texts_.Clear();
    rows_ = 0;
}

void ResultSet::Finish() {
    cells_.Trim();
    texts_.Trim();
}

ResultSet::Cell ResultSet::CellAt(int row, int field) const {
    const char* record = cells_.At(static_cast<std::size_t>(row) * stride_);
    const char* payload = record + static_cast<std::size_t>(field) * slot;
    Cell cell;
    cell.kind = static_cast<Kind>(record[names_.size() * slot + static_cast<std::size_t>(field)]);
    if (cell.kind == Kind::Whole || cell.kind == Kind::Day) {
        std::memcpy(&cell.whole, payload, slot);
    } else if (cell.kind == Kind::Real) {
        std::memcpy(&cell.real, payload, slot);
    } else if (cell.kind != Kind::Null) {
        Span span{};
        std::memcpy(&span, payload, slot);
        if (span.length > 0)
            cell.text = {texts_.At(span.offset), span.length};
    }
    return cell;
}

Value ResultSet::At(int row, int field) const {
    const Cell cell = CellAt(row, field);
    switch (cell.kind) {
    case Kind::Whole:
        return cell.whole;
    case Kind::Real:
        return cell.real;
    case Kind::Decimal:
        return Value::Decimal{std::string(cell.text)};
    case Kind::Text:
        return cell.text;
    case Kind::Day:
        return DateOf(cell.whole);
    case Kind::Null:
        break;
    }
    return {};
}

void ResultSet::Set(int row, int field, const Value& value) {
    row_ = static_cast<std::size_t>(row) * stride_;
    next_ = static_cast<std::size_t>(field);
    const Value::Held& held = value.Raw();
    if (const auto* whole = std::get_if<std::int64_t>(&held))
        return AddWhole(*whole);
    if (const auto* real = std::get_if<double>(&held))
        return AddReal(*real);
    if (const auto* decimal = std::get_if<Value::Decimal>(&held))
        return AddText(decimal->digits, Kind::Decimal);
    if (const auto* text = std::get_if<std::string>(&held))
        return AddText(*text);
    if (const auto* date = std::get_if<Date>(&held))
        return AddDate(*date);
    constexpr std::int64_t nothing = 0;
    Add(Kind::Null, &nothing);
}

void ResultSet::FailTooLarge() {
    FailDatabase("The result of the query is too large for the memory.");
}

} // namespace Quillane
