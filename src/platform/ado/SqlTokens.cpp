#include "platform/ado/SqlTokens.h"

#include "platform/runtime/Text.h"

#include <algorithm>
#include <array>

namespace Quillane {

namespace {

enum class CharacterKind : unsigned char { Symbol, Blank, Letter, Digit };

constexpr std::array<CharacterKind, 256> MakeCharacterKinds() {
    std::array<CharacterKind, 256> kinds{};
    for (const char blank : {' ', '\t', '\r', '\n', '\f', '\v'})
        kinds[static_cast<unsigned char>(blank)] = CharacterKind::Blank;
    for (unsigned c = '0'; c <= '9'; ++c)
        kinds[c] = CharacterKind::Digit;
    for (unsigned c = 'a'; c <= 'z'; ++c)
        kinds[c] = kinds[c - 'a' + 'A'] = CharacterKind::Letter;
    for (unsigned c = 0x80; c <= 0xFF; ++c)
        kinds[c] = CharacterKind::Letter;
    for (const char c : {'_', '@', '#', '$'})
        kinds[static_cast<unsigned char>(c)] = CharacterKind::Letter;
    return kinds;
}

constexpr std::array<CharacterKind, 256> characterKinds = MakeCharacterKinds();

/// A byte order mark may be in texts from files and other programs. SQLite ignores it too.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

CharacterKind KindOf(char c) {
    return characterKinds[static_cast<unsigned char>(c)];
}

bool IsNamePart(char c) {
    return KindOf(c) == CharacterKind::Letter || KindOf(c) == CharacterKind::Digit;
}

} // namespace

void SqlTokens::SkipBlanksAndComments() {
    while (at_ < text_.size()) {
        const char c = text_[at_];
        if (KindOf(c) == CharacterKind::Blank) {
            ++at_;
        } else if (text_.substr(at_).starts_with(byteOrderMark)) {
            at_ += byteOrderMark.size();
        } else if (c == '-' && CharacterAt(at_ + 1) == '-') {
            at_ = std::min(text_.find('\n', at_), text_.size());
        } else if (c == '/' && CharacterAt(at_ + 1) == '*') {
            const std::size_t close = text_.find("*/", at_ + 2);
            at_ = close == std::string_view::npos ? text_.size() : close + 2;
        } else {
            return;
        }
    }
}

std::size_t SqlTokens::EndOfQuoted(std::size_t begin, char quote) const {
    for (std::size_t at = begin + 1; at < text_.size(); ++at) {
        if (text_[at] != quote)
            continue;
        const bool doubled = quote != ']' && CharacterAt(at + 1) == quote;
        if (!doubled)
            return at + 1;
        ++at;
    }
    return text_.size();
}

std::size_t SqlTokens::EndOfRun(std::size_t begin) const {
    std::size_t at = begin + 1;
    while (at < text_.size() && IsNamePart(text_[at]))
        ++at;
    return at;
}

SqlToken SqlTokens::Next() {
    SkipBlanksAndComments();
    SqlToken token{SqlTokenKind::End, at_, at_};
    if (at_ >= text_.size())
        return token;
    const char c = text_[at_];
    switch (KindOf(c)) {
    case CharacterKind::Letter:
        token.kind = SqlTokenKind::Word;
        token.end = EndOfRun(at_);
        break;
    case CharacterKind::Digit:
        token.kind = SqlTokenKind::Number;
        token.end = EndOfRun(at_);
        break;
    default:
        token.kind = c == '\''              ? SqlTokenKind::String
                     : c == '[' || c == '"' ? SqlTokenKind::QuotedName
                                            : SqlTokenKind::Symbol;
        token.end =
            token.kind == SqlTokenKind::Symbol ? at_ + 1 : EndOfQuoted(at_, c == '[' ? ']' : c);
        break;
    }
    at_ = token.end;
    return token;
}

bool SqlTokens::IsWord(const SqlToken& token, std::string_view lowerCaseWord) const {
    if (token.kind != SqlTokenKind::Word || token.end - token.begin != lowerCaseWord.size())
        return false;
    return EqualIgnoringCase(TextOf(token), lowerCaseWord);
}

std::string NameOf(std::string_view token) {
    if (token.size() < 2 || (token.front() != '[' && token.front() != '"'))
        return std::string(token);
    const char quote = token.front();
    std::string name;
    for (std::size_t at = 1; at + 1 < token.size(); ++at) {
        name += token[at];
        if (quote == '"' && token[at] == '"')
            ++at;
    }
    return name;
}

bool IsBlankStatement(std::string_view text) {
    SqlTokens tokens(text);
    SqlToken token = tokens.Next();
    while (tokens.IsSymbol(token, ';'))
        token = tokens.Next();
    return token.kind == SqlTokenKind::End;
}

} // namespace Quillane
