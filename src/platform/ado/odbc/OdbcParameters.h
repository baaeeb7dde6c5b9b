#pragma once

#include "platform/ado/Value.h"
#include "platform/ado/odbc/OdbcText.h"

#include <span>
#include <string>
#include <vector>

namespace Quillane {

/// The values of a statement's parameters, bound to it in their order. The statement reads them
/// when it is executed, so this object must live until then.
///
/// Texts and dates go as text in UTF-16, dates in the form YYYY-MM-DDT00:00:00, which the server
/// turns into what its column holds; numbers go as the kind they are, and a decimal with all of its
/// digits.
class OdbcParameters {
public:
    OdbcParameters(const OdbcHandle& statement, std::span<const Value> values);
    OdbcParameters(const OdbcParameters&) = delete;
    OdbcParameters& operator=(const OdbcParameters&) = delete;

private:
    /// What one value is read from; only one of the first four is used.
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
