#include "platform/ado/AdoFailure.h"
#include "platform/ado/Filter.h"
#include "platform/ado/SqlTokens.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <algorithm>
#include <utility>

namespace Quillane {

namespace {

[[noreturn]] void FailUnreadable(std::string_view criterion) {
    FailAccess(FailureNumber::InvalidArgument,
               "This cannot be read as a filter: " + std::string(criterion));
}

std::string Unquoted(std::string_view literal) {
    std::string text;
    for (std::size_t at = 1; at + 1 < literal.size(); ++at) {
        text += literal[at];
        if (literal[at] == '\'')
            ++at;
    }
    return text;
}

/// The result of parsing, or nothing if the text is not valid.
template <typename Read>
auto Attempt(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Failure&) {
        return std::nullopt;
    }
}

} // namespace

/// Reads "a = 'x' AND (b > 1 OR c Like '%y')" by recursive descent; AND binds before OR.
class FilterParser {
public:
    FilterParser(std::string_view criterion, const ResultSet& rows)
        : criterion_(criterion), rows_(rows), tokens_(criterion) {
        Advance();
    }

    Filter Whole() {
        Either();
        return Finished();
    }

    Filter OneComparison() {
        Comparison();
        return Finished();
    }

private:
    using Operation = Filter::Operation;

    void Advance() { current_ = tokens_.Next(); }

    Filter Finished() {
        if (current_.kind != SqlTokenKind::End)
            Refuse();
        return std::move(filter_);
    }

    [[noreturn]] void Refuse() const { FailUnreadable(criterion_); }

    std::size_t Either() {
        std::size_t left = Both();
        while (tokens_.IsWord(current_, "or")) {
            Advance();
            const std::size_t right = Both();
            left = Join(Operation::Or, left, right);
        }
        return left;
    }

    std::size_t Both() {
        std::size_t left = Single();
        while (tokens_.IsWord(current_, "and")) {
            Advance();
            const std::size_t right = Single();
            left = Join(Operation::And, left, right);
        }
        return left;
    }

    std::size_t Single() {
        if (!tokens_.IsSymbol(current_, '('))
            return Comparison();
        if (++depth_ > deepest)
            Refuse();
        Advance();
        const std::size_t inner = Either();
        if (!tokens_.IsSymbol(current_, ')'))
            Refuse();
        Advance();
        --depth_;
        return inner;
    }

    std::size_t Join(Operation operation, std::size_t left, std::size_t right) {
        Filter::Node node;
        node.operation = operation;
        node.left = left;
        node.right = right;
        return Add(std::move(node));
    }

    std::size_t Add(Filter::Node node) {
        filter_.nodes_.push_back(std::move(node));
        return filter_.nodes_.size() - 1;
    }

    std::size_t Comparison() {
        Filter::Node node;
        node.field = TakeField();
        node.operation = TakeOperation();
        TakeValue(node);
        const bool comparesNull =
            node.operation == Operation::Equal || node.operation == Operation::NotEqual;
        if (!node.text && !comparesNull)
            Refuse();
        if (node.operation == Operation::Like) {
            std::replace(node.text->begin(), node.text->end(), '*', '%');
            node.like = std::make_shared<LikePattern>(*node.text);
        }
        return Add(std::move(node));
    }

    int TakeField() {
        if (current_.kind != SqlTokenKind::Word && current_.kind != SqlTokenKind::QuotedName)
            Refuse();
        const std::string name = NameOf(tokens_.TextOf(current_));
        Advance();
        const int field = rows_.FieldNumber(name);
        if (field < 0)
            FailAccess(FailureNumber::ItemNotFound, "There is no field named " + name + ".");
        return field;
    }

    Operation TakeOperation() {
        if (tokens_.IsWord(current_, "like")) {
            Advance();
            return Operation::Like;
        }
        if (current_.kind != SqlTokenKind::Symbol)
            Refuse();
        const char first = criterion_[current_.begin];
        Advance();
        const bool adjoins = current_.kind == SqlTokenKind::Symbol;
        if (first == '<' && adjoins && tokens_.IsSymbol(current_, '>'))
            return Advance(), Operation::NotEqual;
        if (first == '<' && adjoins && tokens_.IsSymbol(current_, '='))
            return Advance(), Operation::LessEqual;
        if (first == '>' && adjoins && tokens_.IsSymbol(current_, '='))
            return Advance(), Operation::GreaterEqual;
        switch (first) {
        case '=':
            return Operation::Equal;
        case '<':
            return Operation::Less;
        case '>':
            return Operation::Greater;
        default:
            Refuse();
        }
    }

    void TakeValue(Filter::Node& node) {
        if (tokens_.IsWord(current_, "null")) {
            Advance();
            return;
        }
        node.text = current_.kind == SqlTokenKind::String ? TakeString() : TakeNumber();
        // Most values are names, and a failed attempt costs more than the rest of the filter.
        if (node.text->find_first_of("0123456789") == std::string::npos)
            return;
        node.number = Attempt([&] { return ToDouble(*node.text); });
        node.date = Attempt([&] { return ParseDate(*node.text); });
    }

    std::string TakeString() {
        const std::string_view literal = tokens_.TextOf(current_);
        const bool isClosed = literal.size() >= 2 && literal.back() == '\'' &&
                              std::count(literal.begin(), literal.end(), '\'') % 2 == 0;
        if (!isClosed)
            Refuse();
        Advance();
        return Unquoted(literal);
    }

    std::string TakeNumber() {
        const std::size_t begin = current_.begin;
        std::size_t end = begin;
        const auto isPart = [this] {
            return current_.kind == SqlTokenKind::Number || tokens_.IsSymbol(current_, '-') ||
                   tokens_.IsSymbol(current_, '+') || tokens_.IsSymbol(current_, '.');
        };
        while (isPart()) {
            end = current_.end;
            Advance();
        }
        const std::string text(criterion_.substr(begin, end - begin));
        if (!Attempt([&] { return ToDouble(text); }))
            Refuse();
        return text;
    }

    /// Each level takes a part of the stack, here and for each row.
    static constexpr int deepest = 100;

    std::string_view criterion_;
    const ResultSet& rows_;
    SqlTokens tokens_;
    SqlToken current_;
    int depth_ = 0; ///< of open parentheses
    Filter filter_;
};

Filter Filter::Parse(std::string_view criterion, const ResultSet& rows) {
    return FilterParser(criterion, rows).Whole();
}

Filter Filter::ParseComparison(std::string_view criterion, const ResultSet& rows) {
    return FilterParser(criterion, rows).OneComparison();
}

} // namespace Quillane
