#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The kinds of tokens of a statement that the translator distinguishes.
namespace Quillane {

enum class SqlTokenKind {
    End,
    Word,       ///< a name or keyword without quotes
    QuotedName, ///< [x] or "x"
    String,     ///< 'x', with doubled apostrophes inside
    Number,
    Symbol, ///< any other single character
};

struct SqlToken {
    SqlTokenKind kind = SqlTokenKind::End;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Splits a statement into tokens. Strings, quoted names and comments are atomic. Blanks, comments
/// and byte order marks are skipped. A quotation mark that is never closed extends to the end.
class SqlTokens {
public:
    explicit SqlTokens(std::string_view text) : text_(text) {}

    SqlToken Next();
    std::string_view TextOf(const SqlToken& token) const {
        return text_.substr(token.begin, token.end - token.begin);
    }
    bool IsWord(const SqlToken& token, std::string_view lowerCaseWord) const;
    bool IsSymbol(const SqlToken& token, char symbol) const {
        return token.kind == SqlTokenKind::Symbol && text_[token.begin] == symbol;
    }
    char CharacterAt(std::size_t at) const { return at < text_.size() ? text_[at] : '\0'; }

private:
    void SkipBlanksAndComments();
    std::size_t EndOfQuoted(std::size_t begin, char quote) const;
    std::size_t EndOfRun(std::size_t begin) const;

    std::string_view text_;
    std::size_t at_ = 0;
};

/// The name in a word or quoted name, without its quotes.
std::string NameOf(std::string_view token);

/// True if the text holds only blanks, comments and semicolons.
bool IsBlankStatement(std::string_view text);

} // namespace Quillane
