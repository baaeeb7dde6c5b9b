#include "platform/ado/sqlite/SqliteStatements.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/SqlTokens.h"
#include "platform/ado/sqlite/SqliteOpening.h"
#include "platform/ado/sqlite/SqliteRows.h"
#include "platform/ado/sqlite/TSqlTranslator.h"
#include "platform/runtime/Text.h"

#include <sqlite3.h>

#include <charconv>
#include <optional>
#include <vector>

namespace Quillane {

namespace {

constexpr std::size_t keptAtMost = 64;

/// A statement's text with a parameter in place of the number at its end.
struct KeyedText {
    std::string text;
    std::int64_t key = 0;
};

/// Read only from the end: whether the number belongs to a condition is checked later.
std::optional<KeyedText> KeyedByItsEnd(std::string_view statement) {
    constexpr std::size_t longest = 18; // fits a 64-bit number
    std::size_t begin = statement.size();
    while (begin > 0 && IsDigit(statement[begin - 1]))
        --begin;
    const std::string_view digits = statement.substr(begin);
    const std::string_view front = statement.substr(0, begin);
    const std::size_t sign = front.find_last_not_of(' ');
    if (digits.empty() || digits.size() > longest || sign == std::string_view::npos ||
        front[sign] != '=')
        return std::nullopt;
    KeyedText keyed{.text = std::string(front) + '?'};
    std::from_chars(digits.data(), digits.data() + digits.size(), keyed.key);
    return keyed;
}

/// The words that may follow a condition. In the list of a select a parameter would
/// change the name of its column, and in an order it would no longer mean the column with that
/// name.
bool EndsACondition(const SqlTokens& tokens, const SqlToken& token) {
    return tokens.IsWord(token, "order") || tokens.IsWord(token, "group") ||
           tokens.IsWord(token, "select") || tokens.IsWord(token, "returning");
}

/// True if the last token is the parameter and belongs to the condition of the whole statement. The
/// condition of a view or an index is stored as text and cannot have a parameter.
bool EndsInItsCondition(std::string_view keyedText) {
    SqlTokens tokens(keyedText);
    SqlToken token = tokens.Next();
    if (tokens.IsWord(token, "create"))
        return false;
    SqlToken last;
    int depth = 0;
    bool inCondition = false;
    for (; token.kind != SqlTokenKind::End; token = tokens.Next()) {
        depth += tokens.IsSymbol(token, '(') - tokens.IsSymbol(token, ')');
        if (depth == 0)
            inCondition =
                tokens.IsWord(token, "where") || (inCondition && !EndsACondition(tokens, token));
        last = token;
    }
    return inCondition && last.end == keyedText.size() && tokens.IsSymbol(last, '?');
}

} // namespace

void SqliteStatements::Reset::operator()(sqlite3_stmt* statement) const {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
}

void SqliteStatements::Finish::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteStatements::Ready SqliteStatements::Take(std::string_view statement,
                                               std::span<const Value> values) {
    if (const std::optional<KeyedText> keyed = KeyedByItsEnd(statement)) {
        std::vector<Value> all(values.begin(), values.end());
        all.emplace_back(keyed->key);
        if (sqlite3_stmt* kept = Find(keyed->text))
            return Bind(kept, all);
        if (EndsInItsCondition(keyed->text))
            return Bind(Keep(keyed->text), all);
    }
    sqlite3_stmt* kept = Find(statement);
    return Bind(kept ? kept : Keep(statement), values);
}

SqliteStatements::Ready SqliteStatements::Bind(sqlite3_stmt* statement,
                                               std::span<const Value> values) {
    Ready ready(statement);
    BindSqliteParameters(statement, values);
    return ready;
}

sqlite3_stmt* SqliteStatements::Find(std::string_view text) {
    const auto place = places_.find(text);
    if (place == places_.end())
        return nullptr;
    kept_.splice(kept_.begin(), kept_, place->second);
    return kept_.front().statement.get();
}

sqlite3_stmt* SqliteStatements::Keep(std::string_view text) {
    kept_.push_front({std::string(text), Prepare(FromTSql(text))});
    places_.emplace(kept_.front().text, kept_.begin());
    if (kept_.size() > keptAtMost) {
        places_.erase(kept_.back().text);
        kept_.pop_back();
    }
    return kept_.front().statement.get();
}

SqliteStatements::Statement SqliteStatements::Prepare(const std::string& text) {
    secret_.Judge(text);
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    // The length includes the terminating zero, so that SQLite does not copy the text.
    const int length = static_cast<int>(text.size()) + 1;
    if (sqlite3_prepare_v2(database_, text.c_str(), length, &prepared, &tail) != SQLITE_OK)
        FailDatabase(SqliteMessage(database_));
    Statement statement(prepared);
    if (!statement)
        FailDatabase("The statement is empty.");
    if (!IsBlankStatement(
            std::string_view(text).substr(static_cast<std::size_t>(tail - text.c_str()))))
        FailDatabase("Only one statement can be run at a time.");
    return statement;
}

} // namespace Quillane
