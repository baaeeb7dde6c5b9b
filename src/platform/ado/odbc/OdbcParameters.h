#pragma once

#include "platform/ado/Value.h"
#include "platform/ado/odbc/OdbcText.h"

#include <span>
#include <string>
#include <vector>

namespace Quillane {

/// The values of a statement's parameters, bound to it in their order. The statement reads them
/// when it is executed. Requires: this object lives until then.
///
/// Texts and dates are sent as text in UTF-16, dates as YYYY-MM-DDT00:00:00, which the server
/// converts to the type of its column. Numbers are sent with their type, and a decimal with all of
/// its digits.
class OdbcParameters {
public:
    OdbcParameters(const OdbcHandle& statement, std::span<const Value> values);
    OdbcParameters(const OdbcParameters&) = delete;
    OdbcParameters& operator=(const OdbcParameters&) = delete;

private:
    /// The source of one value; only one of the first four members is used.
    struct Place {
        std::int64_t whole = 0;
        double real = 0;
        std::string digits;
        OdbcText text;
        SQLLEN length = 0;
    };

    SQLRETURN Bind(const OdbcHandle& statement, SQLUSMALLINT number, const Value& value);

    std::vector<Place> places_;
};

} // namespace Quillane
