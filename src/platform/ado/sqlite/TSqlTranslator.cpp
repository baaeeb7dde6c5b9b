#include "platform/ado/sqlite/TSqlTranslator.h"

#include "platform/ado/SqlTokens.h"
#include "platform/ado/sqlite/ForeignKeyList.h"

#include <vector>

namespace Quillane {

namespace {

class Surface {
public:
    explicit Surface(std::string_view statement) : statement_(statement), tokens_(statement) {
        constexpr std::size_t roomForALimit = 24;
        result_.reserve(statement.size() + roomForALimit);
    }

    std::string Turn() {
        while (current_ = tokens_.Next(), current_.kind != SqlTokenKind::End) {
            if (current_.kind == SqlTokenKind::Word)
                Word();
            else if (current_.kind == SqlTokenKind::Symbol)
                Symbol(statement_[current_.begin]);
            lastEnd_ = current_.end;
        }
        EndSelects();
        CopyUpTo(statement_.size());
        return std::move(result_);
    }

private:
    /// A TOP whose LIMIT is added at the end of its select.
    struct Limit {
        int depth;
        std::string_view count;
    };

    void Word() {
        switch (current_.end - current_.begin) {
        case 1:
            if (tokens_.IsWord(current_, "n") && tokens_.CharacterAt(current_.end) == '\'')
                Drop(current_.begin, current_.end);
            break;
        case 3:
            if (tokens_.IsWord(current_, "dbo"))
                DropOwner();
            break;
        case 6:
            if (tokens_.IsWord(current_, "isnull"))
                ReplaceIsNull();
            else if (tokens_.IsWord(current_, "select"))
                TakeTop();
            break;
        default:
            break;
        }
        if (!limits_.empty() && JoinsSelects())
            EndSelects();
    }

    void Symbol(char symbol) {
        if (symbol == '(') {
            ++depth_;
        } else if (symbol == ')') {
            EndSelects();
            --depth_;
        } else if (symbol == ';') {
            EndSelects();
        }
    }

    bool JoinsSelects() const {
        return tokens_.IsWord(current_, "union") || tokens_.IsWord(current_, "except") ||
               tokens_.IsWord(current_, "intersect");
    }

    void DropOwner() {
        SqlTokens ahead = tokens_;
        const SqlToken point = ahead.Next();
        if (!ahead.IsSymbol(point, '.'))
            return;
        Drop(current_.begin, point.end);
        tokens_ = ahead;
        current_ = point;
    }

    void ReplaceIsNull() {
        SqlTokens ahead = tokens_;
        if (!ahead.IsSymbol(ahead.Next(), '('))
            return;
        CopyUpTo(current_.begin);
        result_ += "IfNull";
        copied_ = current_.end;
    }

    void TakeTop() {
        SqlTokens ahead = tokens_;
        SqlToken top = ahead.Next();
        if (ahead.IsWord(top, "distinct") || ahead.IsWord(top, "all"))
            top = ahead.Next();
        if (!ahead.IsWord(top, "top"))
            return;
        SqlToken count = ahead.Next();
        SqlToken last = count;
        const bool inParentheses = ahead.IsSymbol(count, '(');
        if (inParentheses) {
            count = ahead.Next();
            last = ahead.Next();
            if (!ahead.IsSymbol(last, ')'))
                return;
        }
        if (count.kind != SqlTokenKind::Number || IsUnknownTop(ahead))
            return;
        Drop(top.begin, last.end);
        limits_.push_back({depth_, tokens_.TextOf(count)});
        tokens_ = ahead;
        current_ = last;
    }

    /// A percentage of the rows, or ties: SQLite has neither.
    static bool IsUnknownTop(SqlTokens ahead) {
        const SqlToken next = ahead.Next();
        return ahead.IsWord(next, "percent") || ahead.IsWord(next, "with");
    }

    /// The limits of the selects that end here are put after their last token, before any comment.
    void EndSelects() {
        while (!limits_.empty() && limits_.back().depth >= depth_) {
            CopyUpTo(lastEnd_);
            result_ += " LIMIT ";
            result_ += limits_.back().count;
            limits_.pop_back();
        }
    }

    void CopyUpTo(std::size_t end) {
        if (end <= copied_)
            return;
        result_ += statement_.substr(copied_, end - copied_);
        copied_ = end;
    }

    /// Leaves a blank: the tokens on both sides must not become one, such as a longer string or the
    /// beginning of a comment.
    /// beginning of a comment.
    void Drop(std::size_t begin, std::size_t end) {
        CopyUpTo(begin);
        if (!result_.empty() && result_.back() != ' ')
            result_ += ' ';
        copied_ = end;
    }

    std::string_view statement_;
    SqlTokens tokens_;
    SqlToken current_;
    std::string result_;
    std::size_t copied_ = 0;
    std::size_t lastEnd_ = 0;
    int depth_ = 0;
    std::vector<Limit> limits_;
};

} // namespace

std::string FromTSql(std::string_view statement) {
    SqlTokens tokens(statement);
    const SqlToken first = tokens.Next();
    if (tokens.IsWord(first, "exec") || tokens.IsWord(first, "execute"))
        if (std::string list = ForeignKeyList(statement); !list.empty())
            return list;
    return Surface(statement).Turn();
}

} // namespace Quillane
