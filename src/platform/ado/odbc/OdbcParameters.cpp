#include "platform/ado/odbc/OdbcParameters.h"

#include <algorithm>
#include <cstddef>

namespace Quillane {

namespace {

/// Longer texts are bound as long ones: a driver cuts the others at this length without a message.
constexpr SQLULEN longestPlainText = 4000;

/// The type of a parameter for the driver.
struct Look {
    SQLSMALLINT cType;
    SQLSMALLINT sqlType;
    SQLULEN size = 0;
    SQLSMALLINT decimals = 0;
};

Look LookOfText(std::size_t characters) {
    const SQLULEN size = std::max<SQLULEN>(characters, 1);
    const bool isLong = size > longestPlainText;
    return {SQL_C_WCHAR, static_cast<SQLSMALLINT>(isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR), size};
}

Look LookOfDecimal(const std::string& digits) {
    const auto count =
        std::count_if(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    const std::size_t point = digits.find('.');
    const std::size_t scale = point == std::string::npos ? 0 : digits.size() - point - 1;
    return {SQL_C_CHAR, SQL_DECIMAL, static_cast<SQLULEN>(std::max<std::ptrdiff_t>(count, 1)),
            static_cast<SQLSMALLINT>(scale)};
}

} // namespace

OdbcParameters::OdbcParameters(const OdbcHandle& statement, std::span<const Value> values)
    : places_(values.size()) {
    SQLUSMALLINT number = 0;
    for (const Value& value : values)
        statement.Check(Bind(statement, ++number, value));
}

SQLRETURN OdbcParameters::Bind(const OdbcHandle& statement, SQLUSMALLINT number,
                               const Value& value) {
    Place& place = places_[number - 1u];
    const auto bind = [&](const Look& look, void* data, std::size_t length) {
        const auto bytes = static_cast<SQLLEN>(length);
        place.length = data ? bytes : SQL_NULL_DATA;
        return SQLBindParameter(statement.Get(), number, SQL_PARAM_INPUT, look.cType, look.sqlType,
                                look.size, look.decimals, data, bytes, &place.length);
    };
    const Value::Held& held = value.Raw();
    if (const auto* whole = std::get_if<std::int64_t>(&held)) {
        place.whole = *whole;
        return bind({SQL_C_SBIGINT, SQL_BIGINT, 19}, &place.whole, sizeof place.whole);
    }
    if (const auto* real = std::get_if<double>(&held)) {
        place.real = *real;
        return bind({SQL_C_DOUBLE, SQL_DOUBLE, 53}, &place.real, sizeof place.real);
    }
    if (const auto* decimal = std::get_if<Value::Decimal>(&held)) {
        place.digits = decimal->digits;
        return bind(LookOfDecimal(place.digits), place.digits.data(), place.digits.size());
    }
    if (value.IsNull())
        return bind(LookOfText(1), nullptr, 0);
    place.text = ToOdbc(value.Text());
    const std::size_t characters = place.text.size() - 1;
    return bind(LookOfText(characters), place.text.data(), characters * sizeof(SQLWCHAR));
}

} // namespace Quillane
