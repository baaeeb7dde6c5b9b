#include "platform/ado/odbc/OdbcText.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

std::string ThereAndBack(std::string_view utf8) {
    const OdbcText text = ToOdbc(utf8);
    return FromOdbc(text.data(), text.size() - 1);
}

std::string FromUnits(const OdbcText& units) {
    return FromOdbc(units.data(), units.size());
}

TEST(OdbcText, KeepsEveryCharacter) {
    for (const std::string_view text :
         {"", "a", "LES-1", "Driver of load 100000", "Müller", "علی", "日本語 and ASCII after it",
          "😀", "a😀b", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80",
          "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(ThereAndBack(text), text);
    EXPECT_EQ(ThereAndBack(std::string_view("a\0b", 3)), std::string_view("a\0b", 3));
}

TEST(OdbcText, EndsWithAZero) {
    EXPECT_EQ(ToOdbc(""), OdbcText({0}));
    EXPECT_EQ(ToOdbc("aé"), OdbcText({'a', 0xE9, 0}));
    EXPECT_EQ(ToOdbc("😀"), OdbcText({0xD83D, 0xDE00, 0}));
}

TEST(OdbcText, ReplacesInvalidUtf8) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"a\xFFz", "a\uFFFDz"}, {"\xC3", "\uFFFD"},           {"\xC3z", "\uFFFDz"},
        {"\x80", "\uFFFD"},     {"\xC0\xAF", "\uFFFD\uFFFD"}, {"\xE2\x82", "\uFFFD\uFFFD"},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(ThereAndBack(text), shown);
    EXPECT_EQ(ThereAndBack("\xED\xA0\x80").substr(0, 3), "\uFFFD") << "half a surrogate pair";
    EXPECT_EQ(ThereAndBack("\xF4\x90\x80\x80").substr(0, 3), "\uFFFD") << "beyond the last plane";
}

TEST(OdbcText, ReplacesHalfASurrogatePair) {
    EXPECT_EQ(FromUnits({'a', 0xD83D}), "a\uFFFD");
    EXPECT_EQ(FromUnits({0xD83D, 'a'}), "\uFFFDa");
    EXPECT_EQ(FromUnits({0xDE00, 'a'}), "\uFFFDa");
    EXPECT_EQ(FromUnits({0xD83D, 0xD83D, 0xDE00}), "\uFFFD😀");
}

TEST(OdbcText, IsAppended) {
    std::string text = "a";
    const OdbcText more = {'b', 0xE9};
    AppendUtf8(text, more.data(), more.size());
    EXPECT_EQ(text, "abé");
}

} // namespace

} // namespace Quillane
