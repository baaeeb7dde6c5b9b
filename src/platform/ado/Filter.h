#pragma once

#include "platform/ado/LikePattern.h"
#include "platform/ado/ResultSet.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// A criterion on the rows of a local copy, read once and then asked for each row. See
/// `Recordset::SetFilter` for what it may hold.
class Filter {
public:
    /// Text that is no criterion fails (3001), a field that the rows don't have fails too (3265).
    static Filter Parse(std::string_view criterion, const ResultSet& rows);
    /// As Parse, but one comparison only, without AND, OR and parentheses.
    static Filter ParseComparison(std::string_view criterion, const ResultSet& rows);

    bool Fits(const ResultSet& rows, int row) const { return Fits(rows, row, nodes_.back()); }

private:
    friend class FilterParser;

    enum class Operation { And, Or, Equal, NotEqual, Less, Greater, LessEqual, GreaterEqual, Like };

    struct Node {
        Operation operation = Operation::Equal;
        std::size_t left = 0; ///< And, Or: places of the two sides
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
