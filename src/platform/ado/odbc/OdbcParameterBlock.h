#pragma once

#include "platform/ado/ResultSet.h"
#include "platform/ado/odbc/OdbcHandle.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Quillane {

/// Rows whose fields are the parameters of one statement, bound as an array for each field, so that
/// one call runs the statement for all of them. It takes as many rows as fit into some megabytes,
/// and one at least.
///
/// A field goes as the kind that its cells have: whole numbers, floating numbers, or else text in
/// UTF-16, which the server converts to what its column holds. Dates go as YYYY-MM-DDT00:00:00.
class OdbcParameterBlock {
public:
    /// Binds the rows from this one on to a new statement. Requires: `first` is a row.
    OdbcParameterBlock(const OdbcHandle& statement, const ResultSet& rows, int first);
    OdbcParameterBlock(const OdbcParameterBlock&) = delete;
    OdbcParameterBlock& operator=(const OdbcParameterBlock&) = delete;

    int RowCount() const { return count_; }

    /// Fails where a row is refused. The number of that row is not given: not every driver knows
    /// it.
    void Execute(std::string_view text);

private:
    enum class Form { Whole, Real, Text };

    /// The cells of one field; only the vector of its form is used.
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
