#include "platform/ado/odbc/OdbcColumn.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/odbc/OdbcText.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Quillane {

namespace {

/// The largest declared length of a column that is read in blocks.
constexpr SQLULEN longestBlockText = 8000;

OdbcForm FormOf(SQLSMALLINT sqlType) {
    switch (sqlType) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return OdbcForm::Whole;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return OdbcForm::Real;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return OdbcForm::Decimal;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return OdbcForm::Moment;
    default:
        return OdbcForm::Text;
    }
}

bool IsLongType(SQLSMALLINT sqlType) {
    return sqlType == SQL_LONGVARCHAR || sqlType == SQL_WLONGVARCHAR ||
           sqlType == SQL_LONGVARBINARY;
}

void SetWidth(OdbcColumn& column, SQLULEN size) {
    switch (column.form) {
    case OdbcForm::Whole:
        column.width = sizeof(std::int64_t);
        return;
    case OdbcForm::Real:
        column.width = sizeof(double);
        return;
    case OdbcForm::Moment:
        column.width = sizeof(SQL_TIMESTAMP_STRUCT);
        return;
    case OdbcForm::Decimal: {
        // The digits, a sign, a zero and a point. Without a declared scale the driver guesses.
        constexpr SQLULEN fewest = 62;
        column.width = std::max(size, fewest) + 4;
        return;
    }
    case OdbcForm::Text:
        column.isLong = IsLongType(column.sqlType) || size == 0 || size > longestBlockText;
        // A character outside the Basic Multilingual Plane needs two units. A byte is shown as two
        // digits.
        column.width = ((column.isLong ? 0 : size * 2) + 1) * sizeof(SQLWCHAR);
    }
}

OdbcColumn Describe(const OdbcHandle& statement, SQLUSMALLINT number) {
    constexpr SQLSMALLINT mostUnits = 256;
    SQLWCHAR name[mostUnits] = {};
    SQLSMALLINT nameLength = 0;
    SQLULEN size = 0;
    SQLSMALLINT nullable = 0;
    OdbcColumn column;
    statement.Check(SQLDescribeColW(statement.Get(), number, name, mostUnits, &nameLength,
                                    &column.sqlType, &size, &column.digits, &nullable));
    column.name =
        FromOdbc(name, static_cast<std::size_t>(std::clamp<int>(nameLength, 0, mostUnits - 1)));
    column.form = FormOf(column.sqlType);
    SetWidth(column, size);
    return column;
}

std::string Digits(unsigned long number, std::size_t count) {
    std::string text = std::to_string(number);
    return std::string(count - std::min(count, text.size()), '0') + text;
}

/// The fraction of a second as stored, without zeros at the end. A server that counts in
/// three-hundredths refuses more digits than it declares.
std::string PartOfSecond(SQLUINTEGER nanoseconds, SQLSMALLINT digits) {
    const auto kept = static_cast<std::size_t>(std::clamp<int>(digits, 0, 9));
    std::string part = "." + Digits(nanoseconds, 9).substr(0, kept);
    part.erase(part.find_last_not_of('0') + 1);
    return part == "." ? std::string() : part;
}

std::string MomentText(const SQL_TIMESTAMP_STRUCT& moment, SQLSMALLINT digits) {
    const auto year = static_cast<unsigned long>(std::max<int>(moment.year, 0));
    return Digits(year, 4) + "-" + Digits(moment.month, 2) + "-" + Digits(moment.day, 2) + "T" +
           Digits(moment.hour, 2) + ":" + Digits(moment.minute, 2) + ":" +
           Digits(moment.second, 2) + PartOfSecond(moment.fraction, digits);
}

void AddMoment(const OdbcColumn& column, const char* data, ResultSet& result) {
    SQL_TIMESTAMP_STRUCT moment{};
    std::memcpy(&moment, data, sizeof moment);
    const bool isWholeDay =
        moment.hour == 0 && moment.minute == 0 && moment.second == 0 && moment.fraction == 0;
    if (isWholeDay)
        result.AddDate(std::chrono::year(moment.year) / std::chrono::month(moment.month) /
                       std::chrono::day(moment.day));
    else
        result.AddText(MomentText(moment, column.digits));
}

[[noreturn]] void FailCutShort(const OdbcColumn& column) {
    FailDatabase("A value of the column " + column.name +
                 " is longer than the database driver has declared, so the rows cannot be read.");
}

} // namespace

SQLSMALLINT OdbcColumn::CType() const {
    constexpr std::array<SQLSMALLINT, 5> types = {SQL_C_SBIGINT, SQL_C_DOUBLE, SQL_C_CHAR,
                                                  SQL_C_TYPE_TIMESTAMP, SQL_C_WCHAR};
    return types[static_cast<std::size_t>(form)];
}

std::size_t OdbcColumn::EndWidth() const {
    return form == OdbcForm::Text ? sizeof(SQLWCHAR) : form == OdbcForm::Decimal ? 1 : 0;
}

bool OdbcColumn::IsBinary() const {
    return sqlType == SQL_BINARY || sqlType == SQL_VARBINARY || sqlType == SQL_LONGVARBINARY;
}

std::vector<OdbcColumn> OdbcColumnsOf(const OdbcHandle& statement, int count) {
    std::vector<OdbcColumn> columns;
    columns.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number)
        columns.push_back(Describe(statement, static_cast<SQLUSMALLINT>(number)));
    return columns;
}

void AddOdbcCell(const OdbcColumn& column, const char* data, SQLLEN length, std::string& utf8,
                 ResultSet& result) {
    if (length == SQL_NULL_DATA)
        return result.AddNull();
    const std::size_t mostUnits = column.width - column.EndWidth();
    const bool isCut = length < 0 || static_cast<std::size_t>(length) > mostUnits;
    switch (column.form) {
    case OdbcForm::Whole: {
        std::int64_t whole = 0;
        std::memcpy(&whole, data, sizeof whole);
        return result.AddWhole(whole);
    }
    case OdbcForm::Real: {
        double real = 0;
        std::memcpy(&real, data, sizeof real);
        return result.AddReal(real);
    }
    case OdbcForm::Moment:
        return AddMoment(column, data, result);
    case OdbcForm::Decimal:
        if (isCut)
            FailCutShort(column);
        return result.AddText({data, static_cast<std::size_t>(length)}, ResultSet::Kind::Decimal);
    case OdbcForm::Text:
        if (isCut)
            FailCutShort(column);
        utf8.clear();
        AppendUtf8(utf8, reinterpret_cast<const SQLWCHAR*>(data),
                   static_cast<std::size_t>(length) / sizeof(SQLWCHAR));
        return result.AddText(utf8);
    }
}

} // namespace Quillane
