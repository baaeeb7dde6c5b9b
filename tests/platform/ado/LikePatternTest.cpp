#include "platform/ado/LikePattern.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace Quillane {

namespace {

bool MatchesLike(std::string_view text, std::string_view pattern, char32_t escape = 0) {
    return LikePattern(pattern, escape).Fits(text);
}

struct LikeCase {
    std::string_view text;
    std::string_view pattern;
    bool fits;
};

TEST(LikePattern, MatchesSequencesSingleCharactersAndSets) {
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
        {"\xC3\x41", "%a", true}, // a lead byte with nothing after it is a character by itself
    };
    for (const LikeCase& item : cases)
        EXPECT_EQ(MatchesLike(item.text, item.pattern), item.fits)
            << item.text << " Like " << item.pattern;
}

TEST(LikePattern, MatchesAnEscapedCharacterLiterally) {
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

/// The reference implementation: a % matches nothing, or one character followed by the same %.
bool FitsByRule(std::string_view text, std::string_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern.front() == '%')
        return FitsByRule(text, pattern.substr(1)) ||
               (!text.empty() && FitsByRule(text.substr(1), pattern));
    const std::size_t end = pattern.front() == '[' ? pattern.find(']', 1) : 0;
    const bool isSet = pattern.front() == '[' && end != std::string_view::npos;
    const std::string_view one = pattern.substr(0, isSet ? end + 1 : 1);
    const bool fits =
        !text.empty() && (one == "_" || one == text.substr(0, 1) ||
                          (isSet && one.substr(1, end - 1).find(text[0]) != one.npos));
    return fits && FitsByRule(text.substr(1), pattern.substr(one.size()));
}

std::string Drawn(std::mt19937& chance, std::string_view characters, unsigned longest) {
    std::string text(chance() % (longest + 1), ' ');
    for (char& each : text)
        each = characters[chance() % characters.size()];
    return text;
}

TEST(LikePattern, AgreesWithTheReference) {
    std::mt19937 chance(20'261'120);
    int fitting = 0;
    for (int round = 0; round < 200'000; ++round) {
        const std::string text = Drawn(chance, "ab[", 9);
        const std::string pattern = Drawn(chance, "aabb%%_[]", 7);
        const bool expected = FitsByRule(text, pattern);
        fitting += expected;
        ASSERT_EQ(MatchesLike(text, pattern), expected) << text << " Like " << pattern;
    }
    EXPECT_GT(fitting, 10'000);
}

// Each of these would take days if the text were scanned again for each of its characters.
TEST(LikePattern, IsFoundInALongTextInLinearTime) {
    const std::string text(4'000'000, 'a');
    const std::string half(2'000'000, 'a');
    EXPECT_FALSE(MatchesLike(text, "%" + half + "b"));
    EXPECT_FALSE(MatchesLike(text, "%" + half + "b%"));
    EXPECT_FALSE(MatchesLike(text, "%b" + half + "%"));
    EXPECT_TRUE(MatchesLike(text, "%" + half + "%" + half));
    EXPECT_FALSE(MatchesLike(text, "%" + half + "%" + half + "%a"));
    EXPECT_TRUE(MatchesLike(text + "b", "%" + half + "b"));
    EXPECT_TRUE(MatchesLike("c" + text + "b" + text, "%" + half + "b%"));
    std::string runs;
    for (int run = 0; run < 1'000'000; ++run)
        runs += "%a";
    EXPECT_FALSE(MatchesLike(text, runs + "%b"));
    EXPECT_TRUE(MatchesLike(text, runs));
}

TEST(LikePattern, AcceptsAMillionUnclosedBrackets) {
    const std::string brackets(1'000'000, '[');
    EXPECT_TRUE(MatchesLike(brackets, brackets));
    EXPECT_TRUE(MatchesLike("a" + brackets, "%" + brackets));
    EXPECT_FALSE(MatchesLike(brackets + "a", "%" + brackets));
}

} // namespace

} // namespace Quillane
