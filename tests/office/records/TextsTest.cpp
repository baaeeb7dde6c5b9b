#include "office/records/Texts.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

TEST(OfficeTexts, ApostrophesInALiteralAreDoubled) {
    EXPECT_EQ(SqlText(""), "N''");
    EXPECT_EQ(SqlText("O'Brien's"), "N'O''Brien''s'");
}

TEST(OfficeTexts, FoldedTextsIgnoreCaseAndBlanksAtTheEnd) {
    EXPECT_EQ(Folded("ZaHid  "), "zahid");
    EXPECT_EQ(Folded("ÉLODIE "), Folded("élodie"));
    EXPECT_NE(Folded(" zahid"), "zahid");
    EXPECT_EQ(Folded("  "), "");
}

TEST(OfficeTexts, LengthIsCountedInUtf16Units) {
    EXPECT_EQ(Utf16Length("é"), 1);
    EXPECT_EQ(Utf16Length("🌾"), 2);
}

TEST(OfficeTexts, WhiteSpaceIsTrimmedAtBothEnds) {
    EXPECT_EQ(Trimmed(" \t a b \r\n"), "a b");
    EXPECT_EQ(Trimmed("\xC2\xA0سنز "), "سنز");
    EXPECT_EQ(Trimmed(" "), "");
}

TEST(OfficeTexts, PositiveNumberMustBeOnlyDigits) {
    EXPECT_EQ(PositiveNumber("42"), 42);
    EXPECT_EQ(PositiveNumber("007"), 7);
    for (const char* text : {"", "0", "-1", "+1", "1 ", "1.0", "2147483648", "x"})
        EXPECT_FALSE(PositiveNumber(text)) << text;
}

} // namespace
} // namespace Quillane::Office
