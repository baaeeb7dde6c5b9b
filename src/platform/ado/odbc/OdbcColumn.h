#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/odbc/OdbcHandle.h"

#include <string>
#include <vector>

namespace Quillane {

/// The form in which the driver is asked for the cells of a column.
enum class OdbcForm { Whole, Real, Decimal, Moment, Text };

/// A column of a result, as its driver describes it.
struct OdbcColumn {
    std::string name;
    SQLSMALLINT sqlType = 0;
    OdbcForm form = OdbcForm::Text;
    bool isLong = false; ///< without a declared length: read in pieces
    std::size_t width =
        0; ///< bytes of one cell in the driver's form, with the terminating zero of a text
    SQLSMALLINT digits = 0; ///< of the fraction of a second

    SQLSMALLINT CType() const;
    /// The number of bytes of the terminator after a text.
    std::size_t EndWidth() const;
    bool IsBinary() const;
};

/// The columns of the statement's current result.
std::vector<OdbcColumn> OdbcColumnsOf(const OdbcHandle& statement, int count);

/// Adds a cell from the bytes that the driver has stored for it. `utf8` is scratch memory. Errors:
/// a text or decimal is longer than declared; no value is ever truncated.
void AddOdbcCell(const OdbcColumn& column, const char* data, SQLLEN length, std::string& utf8,
                 ResultSet& result);

} // namespace Quillane
