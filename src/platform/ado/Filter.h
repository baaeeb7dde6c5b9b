#pragma once

#include "platform/ado/LikePattern.h"
#include "platform/ado/ResultSet.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// A criterion on the rows of a local copy. It is parsed once and evaluated for each row.
/// `Recordset::SetFilter` describes the syntax.
class Filter {
public:
    /// Errors: 3001 if the text is not a valid criterion, 3265 if it names an unknown field.
    static Filter Parse(std::string_view criterion, const ResultSet& rows);
    /// Like Parse, but accepts only a single comparison, without AND, OR and parentheses.
    static Filter ParseComparison(std::string_view criterion, const ResultSet& rows);

    bool Fits(const ResultSet& rows, int row) const { return Fits(rows, row, nodes_.back()); }

private:
    friend class FilterParser;

    enum class Operation { And, Or, Equal, NotEqual, Less, Greater, LessEqual, GreaterEqual, Like };

    struct Node {
        Operation operation = Operation::Equal;
        std::size_t left = 0; ///< And, Or: indices of the two sides
        std::size_t right = 0;
        int field = 0;
        std::optional<std::string> text;         ///< none is Null
        std::optional<double> number;            ///< the text as a number, if it is one
        std::optional<Date> date;                ///< the text as a date, if it is one
        std::shared_ptr<const LikePattern> like; ///< only for Like
    };

    bool Fits(const ResultSet& rows, int row, const Node& node) const;
    static bool FitsComparison(const ResultSet::Cell& cell, const Node& node);
    static int Compare(const ResultSet::Cell& cell, const Node& node);

    std::vector<Node> nodes_; ///< the last one is the whole criterion
};

} // namespace Quillane
