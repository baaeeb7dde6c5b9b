#include "platform/ado/sqlite/SqliteRows.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Text.h"

#include <sqlite3.h>

#include <optional>
#include <string_view>

namespace Quillane {

namespace {

void BindText(sqlite3_stmt* statement, int number, const std::string& text) {
    sqlite3_bind_text64(statement, number, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void BindOne(sqlite3_stmt* statement, int number, const Value& value) {
    const Value::Held& held = value.Raw();
    if (const auto* whole = std::get_if<std::int64_t>(&held))
        sqlite3_bind_int64(statement, number, *whole);
    else if (const auto* real = std::get_if<double>(&held))
        sqlite3_bind_double(statement, number, *real);
    else if (const auto* text = std::get_if<std::string>(&held))
        BindText(statement, number, *text);
    else if (!value.IsNull())
        BindText(statement, number, value.Text());
}

bool IsDeclaredAsDate(sqlite3_stmt* statement, int column) {
    const char* declared = sqlite3_column_decltype(statement, column);
    return declared && EqualIgnoringCase(std::string_view(declared).substr(0, 4), "date");
}

int Digits(std::string_view text, std::size_t at, std::size_t count) {
    int value = 0;
    for (const char c : text.substr(at, count)) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

/// Only the form in which dates are written, so that other text is not changed.
std::optional<Date> WholeDay(std::string_view text) {
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text.substr(10) != "T00:00:00")
        return std::nullopt;
    const int year = Digits(text, 0, 4);
    const int month = Digits(text, 5, 2);
    const int day = Digits(text, 8, 2);
    if (year < 0 || month < 0 || day < 0)
        return std::nullopt;
    const Date date = std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) /
                      std::chrono::day(static_cast<unsigned>(day));
    return date.ok() ? std::optional<Date>(date) : std::nullopt;
}

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void ReadText(std::string_view text, bool isDate, ResultSet& result) {
    const std::optional<Date> date = isDate ? WholeDay(text) : std::nullopt;
    if (date)
        result.AddDate(*date);
    else
        result.AddText(text);
}

std::vector<bool> SetColumns(sqlite3_stmt* statement, ResultSet& result) {
    const int count = sqlite3_column_count(statement);
    std::vector<std::string> names;
    std::vector<bool> dates;
    names.reserve(static_cast<std::size_t>(count));
    dates.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) {
        names.emplace_back(sqlite3_column_name(statement, column));
        dates.push_back(IsDeclaredAsDate(statement, column));
    }
    result.SetColumns(std::move(names));
    return dates;
}

void ReadRow(sqlite3_stmt* statement, const std::vector<bool>& dates, ResultSet& result) {
    result.BeginRow();
    for (int column = 0; column < static_cast<int>(dates.size()); ++column) {
        // A session without mutexes reads the column once for its kind and once for each part.
        sqlite3_value* value = sqlite3_column_value(statement, column);
        switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            result.AddWhole(sqlite3_value_int64(value));
            break;
        case SQLITE_FLOAT:
            result.AddReal(sqlite3_value_double(value));
            break;
        case SQLITE_NULL:
            result.AddNull();
            break;
        default:
            ReadText(TextOf(value), dates[static_cast<std::size_t>(column)], result);
        }
    }
}

} // namespace

void BindSqliteParameters(sqlite3_stmt* statement, std::span<const Value> parameters) {
    if (sqlite3_bind_parameter_count(statement) != static_cast<int>(parameters.size()))
        FailDatabase("The statement does not have as many parameters as values were given.");
    int number = 0;
    for (const Value& value : parameters)
        BindOne(statement, ++number, value);
}

bool ReadSqliteRows(sqlite3_stmt* statement, ResultSet& result) {
    int outcome = sqlite3_step(statement);
    // Not earlier: a step prepares the statement again if the schema has changed.
    const std::vector<bool> dates = SetColumns(statement, result);
    for (; outcome == SQLITE_ROW; outcome = sqlite3_step(statement))
        ReadRow(statement, dates, result);
    result.Finish();
    return outcome == SQLITE_DONE;
}

bool ReadSqliteBlock(sqlite3_stmt* statement, int mostRows, ResultSet& result) {
    const int before = result.RowCount();
    std::vector<bool> dates;
    while (result.RowCount() - before < mostRows && sqlite3_step(statement) == SQLITE_ROW) {
        if (dates.empty())
            dates = SetColumns(statement, result);
        ReadRow(statement, dates, result);
    }
    return result.RowCount() - before == mostRows;
}

} // namespace Quillane
