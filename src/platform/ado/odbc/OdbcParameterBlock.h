#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/odbc/OdbcHandle.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Quillane {

/// Rows whose fields are the parameters of one statement, bound as an array for each field, so that
/// one call runs the statement for all rows. It takes as many rows as fit into a few megabytes, and
/// at least one.
///
/// The type of a field is that of its cells: whole numbers, floating-point numbers, or otherwise
/// text in UTF-16, which the server converts to the type of its column. Dates are sent as
/// YYYY-MM-DDT00:00:00.
class OdbcParameterBlock {
public:
    /// Binds the rows from this one on to a new statement. Requires: the row `first` exists.
    OdbcParameterBlock(const OdbcHandle& statement, const ResultSet& rows, int first);
    OdbcParameterBlock(const OdbcParameterBlock&) = delete;
    OdbcParameterBlock& operator=(const OdbcParameterBlock&) = delete;

    int RowCount() const { return count_; }

    /// Errors: a row is refused. The failure does not give the number of the row, because not every
    /// driver knows it.
    void Execute(std::string_view text);

private:
    enum class Form { Whole, Real, Text };

    /// The cells of one field; only the vector of its type is used.
    struct Field {
        Form form = Form::Whole;
        std::size_t longest = 1; ///< of a text, in UTF-16 units
        std::vector<std::int64_t> wholes{};
        std::vector<double> reals{};
        std::vector<SQLWCHAR> texts{};
        std::vector<SQLLEN> lengths{};
    };

    void ChooseForms(int last);
    void ChooseCount(int last);
    void Fill(Field& field, int number);
    void FillText(Field& field, int number);
    void Bind(Field& field, SQLUSMALLINT number);
    bool IsRefused(SQLRETURN outcome) const;

    const OdbcHandle& statement_;
    const ResultSet& rows_;
    int first_;
    int count_ = 0;
    std::vector<Field> fields_;
    std::vector<SQLUSMALLINT> states_;
    SQLULEN processed_ = 0;
};

} // namespace Quillane
