#include "platform/runtime/Text.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(IsDigit, AcceptsOnlyAsciiDigits) {
    for (const char c : std::string_view("0123456789"))
        EXPECT_TRUE(IsDigit(c)) << c;
    for (const char c : std::string_view("/:a \xD9\xA1"))
        EXPECT_FALSE(IsDigit(c)) << c;
}

TEST(Trim, RemovesOnlyBlanksAndOnlyAtTheEnds) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(TrimWhiteSpace, RemovesBlanksTabsAndLineEndsAtTheEnds) {
    EXPECT_EQ(TrimWhiteSpace(" \t a\tb \r\n"), "a\tb");
    EXPECT_EQ(TrimWhiteSpace("\r\n"), "");
}

TEST(UpperCase, ChangesOnlyAsciiLetters) {
    EXPECT_EQ(UpperCase("Veltrane Mills 9"), "VELTRANE MILLS 9");
    EXPECT_EQ(UpperCase("\xC3\xA9t\xC3\xA9"), "\xC3\xA9T\xC3\xA9");
}

TEST(EqualIgnoringCase, ComparesWholeTexts) {
    EXPECT_TRUE(EqualIgnoringCase("RegistryKey", "registrykey"));
    EXPECT_TRUE(EqualIgnoringCase("", ""));
    EXPECT_FALSE(EqualIgnoringCase("registrykey", "registrykeys"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{")) << "letters only";
}

TEST(Doubled, DoublesEachOccurrenceOfTheMark) {
    EXPECT_EQ(Doubled("O'Brien's", '\''), "O''Brien''s");
    EXPECT_EQ(Doubled("a]b", ']'), "a]]b");
    EXPECT_EQ(Doubled("", '\''), "");
}

} // namespace
} // namespace Quillane
