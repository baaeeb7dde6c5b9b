#include "platform/ado/Filter.h"

#include "platform/ado/TextOrder.h"
#include "platform/runtime/Numbers.h"

#include <algorithm>

namespace Quillane {

namespace {

template <typename Number>
int Order(Number left, Number right) {
    return left < right ? -1 : left > right ? 1 : 0;
}

std::string TextOf(const ResultSet::Cell& cell) {
    switch (cell.kind) {
    case ResultSet::Kind::Whole:
        return std::to_string(cell.whole);
    case ResultSet::Kind::Real:
        return NumberText(cell.real);
    case ResultSet::Kind::Decimal:
        return Value(Value::Decimal{std::string(cell.text)}).Text();
    case ResultSet::Kind::Day:
        return DateLiteral(std::chrono::sys_days(std::chrono::days(cell.whole)));
    default:
        return std::string(cell.text);
    }
}

std::optional<double> NumberOf(const ResultSet::Cell& cell) {
    switch (cell.kind) {
    case ResultSet::Kind::Whole:
        return static_cast<double>(cell.whole);
    case ResultSet::Kind::Real:
        return cell.real;
    case ResultSet::Kind::Decimal:
        return Value(Value::Decimal{std::string(cell.text)}).Number();
    default:
        return std::nullopt;
    }
}

} // namespace

bool Filter::Fits(const ResultSet& rows, int row, const Node& node) const {
    // A long chain of joins is nested on the left sides. The left sides are walked in a loop, so
    // that the depth of the recursion is that of the parentheses only.
    const Node* side = &node;
    while (side->operation == Operation::And || side->operation == Operation::Or) {
        const bool decides = side->operation == Operation::Or;
        if (Fits(rows, row, nodes_[side->right]) == decides)
            return decides;
        side = &nodes_[side->left];
    }
    return FitsComparison(rows.CellAt(row, side->field), *side);
}

bool Filter::FitsComparison(const ResultSet::Cell& cell, const Node& node) {
    const bool isNull = cell.kind == ResultSet::Kind::Null;
    if (!node.text)
        return isNull == (node.operation == Operation::Equal);
    if (isNull)
        return false;
    switch (node.operation) {
    case Operation::Equal:
        return Compare(cell, node) == 0;
    case Operation::NotEqual:
        return Compare(cell, node) != 0;
    case Operation::Less:
        return Compare(cell, node) < 0;
    case Operation::Greater:
        return Compare(cell, node) > 0;
    case Operation::LessEqual:
        return Compare(cell, node) <= 0;
    case Operation::GreaterEqual:
        return Compare(cell, node) >= 0;
    default:
        return node.like->Fits(TextOf(cell));
    }
}

int Filter::Compare(const ResultSet::Cell& cell, const Node& node) {
    if (cell.kind == ResultSet::Kind::Text)
        return CompareText(cell.text, *node.text);
    if (cell.kind == ResultSet::Kind::Day && node.date)
        return Order<std::int64_t>(cell.whole,
                                   std::chrono::sys_days(*node.date).time_since_epoch().count());
    const std::optional<double> number = NumberOf(cell);
    if (number && node.number)
        return Order(*number, *node.number);
    return CompareText(TextOf(cell), *node.text);
}

} // namespace Quillane
