#include "platform/ado/SqlTokens.h"

#include <gtest/gtest.h>

#include <vector>

namespace Quillane {

namespace {

std::vector<std::string> Pieces(std::string_view text) {
    SqlTokens tokens(text);
    std::vector<std::string> pieces;
    for (SqlToken token = tokens.Next(); token.kind != SqlTokenKind::End; token = tokens.Next())
        pieces.emplace_back(tokens.TextOf(token));
    return pieces;
}

struct Case {
    std::string_view text;
    std::vector<std::string> pieces;
};

TEST(SqlTokens, KeepsStringsQuotedNamesAndCommentsWhole) {
    const std::vector<Case> cases = {
        {"", {}},
        {"  Select *From a", {"Select", "*", "From", "a"}},
        {"a='O''Brien'", {"a", "=", "'O''Brien'"}},
        {"[a b] \"c \"\"d\"", {"[a b]", "\"c \"\"d\""}},
        {"a--b 'c\nd", {"a", "d"}},
        {"a/* 'b' -- */c", {"a", "c"}},
        {"a-b/c", {"a", "-", "b", "/", "c"}},
        {"1.5<>@p_1", {"1", ".", "5", "<", ">", "@p_1"}},
        {"N'علی' نام", {"N", "'علی'", "نام"}},
        {"'never closed", {"'never closed"}},
        {"/* never closed", {}},
        {"-- never closed", {}},
    };
    for (const Case& item : cases)
        EXPECT_EQ(Pieces(item.text), item.pieces) << item.text;
}

TEST(SqlTokens, FindsAWordInAnyCase) {
    SqlTokens tokens("SeLeCt [select] selected");
    EXPECT_TRUE(tokens.IsWord(tokens.Next(), "select"));
    EXPECT_FALSE(tokens.IsWord(tokens.Next(), "select"));
    EXPECT_FALSE(tokens.IsWord(tokens.Next(), "select"));
}

TEST(SqlTokens, RemovesTheQuotesOfAName) {
    EXPECT_EQ(NameOf("Arrivals"), "Arrivals");
    EXPECT_EQ(NameOf("[bag line]"), "bag line");
    EXPECT_EQ(NameOf("\"a\"\"b\""), "a\"b");
}

TEST(SqlTokens, RecognisesATextWithoutAStatement) {
    for (const auto* blank : {"", " ;", "; ; -- Select 1", "/* Select 1 */"})
        EXPECT_TRUE(IsBlankStatement(blank)) << blank;
    for (const auto* statement : {"Select 1", "; x", "'"})
        EXPECT_FALSE(IsBlankStatement(statement)) << statement;
}

} // namespace

} // namespace Quillane
