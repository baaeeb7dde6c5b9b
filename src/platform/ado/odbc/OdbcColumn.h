#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/odbc/OdbcHandle.h"

#include <string>
#include <vector>

namespace Quillane {

/// How the cells of a result's column are read: the form that the driver is asked for.
enum class OdbcForm { Whole, Real, Decimal, Moment, Text };

/// A column of a result as its driver describes it.
struct OdbcColumn {
    std::string name;
    SQLSMALLINT sqlType = 0;
    OdbcForm form = OdbcForm::Text;
    bool isLong = false;    ///< of no announced length: read in pieces
    std::size_t width = 0;  ///< bytes of one cell in the driver's form, with a text's closing zero
    SQLSMALLINT digits = 0; ///< of the fraction of a second

    SQLSMALLINT CType() const;
    /// The number of bytes of the terminator after a text.
    std::size_t EndWidth() const;
    bool IsBinary() const;
};

/// The columns of the statement's current result.
std::vector<OdbcColumn> OdbcColumnsOf(const OdbcHandle& statement, int count);

/// Adds a cell from the bytes that the driver left for it. `utf8` is scratch memory. A text or
/// decimal that did not fit the announced width fails: nothing is ever cut short unseen.
void AddOdbcCell(const OdbcColumn& column, const char* data, SQLLEN length, std::string& utf8,
                 ResultSet& result);

} // namespace Quillane
