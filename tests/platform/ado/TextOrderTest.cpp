#include "platform/ado/TextOrder.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

TEST(CompareText, IgnoresCaseAndTrailingBlanks) {
    const std::pair<std::string_view, std::string_view> equals[] = {
        {"", ""},       {"", "   "},      {"Ali", "ALI  "},   {"Müller", "MÜLLER"},
        {"ÿ", "Ÿ"},     {"Łódź", "łÓDŹ"}, {"ΑΒΓ", "αβγ"},     {"Жук ", "жУК"},
        {"علی", "علی"}, {"\xFF", "\xFF"}, {"a\xC3", "A\xC3"},
    };
    for (const auto& [left, right] : equals) {
        EXPECT_EQ(CompareText(left, right), 0) << left << " and " << right;
        EXPECT_EQ(CompareText(right, left), 0) << left << " and " << right;
    }
}

TEST(CompareText, OrdersTheRest) {
    const std::pair<std::string_view, std::string_view> pairs[] = {
        {"", "a"}, {"a", "B"}, {"A", "ab"}, {" a", "a"}, {"10", "9"}, {"z", "é"}, {"×", "÷"},
    };
    for (const auto& [left, right] : pairs) {
        EXPECT_LT(CompareText(left, right), 0) << left << " and " << right;
        EXPECT_GT(CompareText(right, left), 0) << left << " and " << right;
    }
}

struct LikeCase {
    std::string_view text;
    std::string_view pattern;
    bool fits;
};

TEST(MatchesLike, KnowsRunsSingleCharactersAndSets) {
    const LikeCase cases[] = {
        {"", "", true},
        {"", "%", true},
        {"", "_", false},
        {"6001", "6%", true},
        {"16001", "6%", false},
        {"Ali Traders-Lahore", "%TRADERS%", true},
        {"Ali", "%x%", false},
        {"abcabd", "%ab_", true},
        {"abab", "%a%b%b", true},
        {"aab", "a%ab", true},
        {"ab", "a%ab", false},
        {"Müller", "m_LLER", true},
        {"MÜLLER", "%ü%", true},
        {"abc", "[a-c]%", true},
        {"ABC", "[xa]bc", true},
        {"dbc", "[^a-c]bc", true},
        {"abc", "[^a-c]bc", false},
        {"50%", "50[%]", true},
        {"50x", "50[%]", false},
        {"a[b", "a[b", true},
        {"a-", "a[b-]", true},
        {"ab", "a", false},
        {"a", "ab", false},
        {"Ali Traders", "%R%D%S", true},
        {"Ali Traders", "%R%D%x", false},
        {"Ali Traders", "%trader", false},
        {"a", "%%", true},
        {"ab", "%%b", true},
        {"ab", "%_b", true},
        {"ab", "%[b]", true},
        {"a[b", "%[b", true},
        {"زبیر Ali", "%a%i", true},
        {"زبیر", "%a%", false},
        {"ÄÄÄa", "%Äa", true},
        {"\xC3\x41", "%a", true}, // a lead byte with nothing behind it is a character by itself
    };
    for (const LikeCase& item : cases)
        EXPECT_EQ(MatchesLike(item.text, item.pattern), item.fits)
            << item.text << " Like " << item.pattern;
}

TEST(MatchesLike, TakesACharacterBehindTheEscapeAsItIs) {
    EXPECT_TRUE(MatchesLike("5%", "5!%", U'!'));
    EXPECT_FALSE(MatchesLike("5x", "5!%", U'!'));
    EXPECT_TRUE(MatchesLike("a_b", "a!_b", U'!'));
    EXPECT_FALSE(MatchesLike("axb", "a!_b", U'!'));
    EXPECT_TRUE(MatchesLike("a!", "a!!", U'!'));
    EXPECT_TRUE(MatchesLike("xx5%", "%!%", U'!'));
    EXPECT_FALSE(MatchesLike("xx5!", "%!%", U'!'));
    EXPECT_TRUE(MatchesLike("%", "%%", U'%'));
    EXPECT_FALSE(MatchesLike("ab", "%%", U'%'));
}

} // namespace

} // namespace Quillane
