#include "scale/Decoding.h"

#include "platform/runtime/Failure.h"
#include "scale/DecodingReference.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

constexpr const char* noChange = "(no change)";

std::string Live(std::string_view rawText, const LiveReading& reading) {
    return DecodeLiveWeight(rawText, reading).value_or(noChange);
}

LiveReading Cutting(std::string direction, double length, bool reversed = false) {
    return {std::move(direction), length, reversed};
}

LiveReading Uncut(bool reversed = false) {
    return {std::nullopt, 0, reversed};
}

std::string Times(int count, std::string_view frame) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += frame;
    return text;
}

struct Example {
    std::string rawText;
    std::string direction;
    int length;
    bool reversed;
    std::string separated; ///< digits and blanks, with each pair of blanks replaced by one
    std::string rest;      ///< after the first run was removed
    std::string live;
    std::string notModified;
    std::string modified;
};

const std::vector<Example>& Examples() {
    static const std::string signedFrames = Times(3, "+001250 kg\r\n") + "+0012";
    static const std::string signedRuns = "001250   001250   001250   0012";
    static const std::string signedRest = "001250   001250   0012";
    static const std::string reversedRuns = "052100 052100 052100 05";
    static const std::vector<Example> examples{
        {signedFrames, "Right", 6, false, signedRuns, signedRest, "1250", "001250", "1250"},
        {signedFrames, "Right", 3, false, signedRuns, signedRest, "250", "001250", "250"},
        {signedFrames, "Left", 3, false, signedRuns, signedRest, "1", "001250", "1"},
        {signedFrames, "Left", 0, false, signedRuns, signedRest, noChange, "001250", "0"},
        {Times(3, "\x02  0  1250\x03"), "Right", 5, false, "0 1250  0 1250  0 1250",
         "1250  0 1250  0 1250", "1250", "1250", "1250"},
        {Times(3, "\x02"
                  "052100\x03") +
             "\x02"
             "05",
         "Left", 6, true, reversedRuns, "052100 052100 05", "001250", "052100", "00125"},
        {Times(3, "000120\r"), "Left", 6, true, "000120 000120 000120", "000120 000120", "021000",
         "000120", "021"},
        {Times(3, "ST,GS,+001234.5kg\r\n"), "Right", 6, false,
         "001234 5      001234 5      001234 5", "5      001234 5      001234 5", noChange, "5",
         "5"},
        {Times(4, "\x02   7\x03"), "Right", 6, false, "7   7   7   7", "7   7   7", noChange, "7",
         "7"},
        {"12345", "Right", 6, false, "12345", "12345", "12345", "", "0"},
        {"1234 5678", "Right", 6, false, "1234 5678", "5678", "5678", "", "0"},
        {"ERR\r\n", "Right", 6, false, "", "", noChange, "", "0"},
    };
    return examples;
}

TEST(Decoding, ReadsTheExamplesLive) {
    for (const Example& example : Examples())
        EXPECT_EQ(
            Live(example.rawText, Cutting(example.direction, example.length, example.reversed)),
            example.live)
            << testing::PrintToString(example.rawText) << example.direction << example.length;
}

TEST(Decoding, ReadsTheExamplesOnTheBench) {
    for (const Example& example : Examples()) {
        const TestWeight weight = DecodeTestWeight(
            example.rawText, example.direction, std::to_string(example.length), example.reversed);
        EXPECT_EQ(weight.notModified, example.notModified)
            << testing::PrintToString(example.rawText);
        EXPECT_EQ(weight.modified, example.modified) << testing::PrintToString(example.rawText);
    }
}

TEST(DecodingReference, GoesThroughTheExamplesStepByStep) {
    for (const Example& example : Examples()) {
        const std::string separated = DecodingReference::BeforeDropping(example.rawText);
        EXPECT_EQ(separated, example.separated);
        EXPECT_EQ(DecodingReference::DropFirstRun(separated, 0), example.rest);
        EXPECT_EQ(DecodingReference::DropFirstRun(separated, 1), example.rest);
    }
}

TEST(Decoding, EmptyTextIsNoChangeLiveAndZeroOnTheBench) {
    EXPECT_EQ(Live("", Cutting("Right", 6)), noChange);
    EXPECT_EQ(Live("", Uncut()), noChange);
    EXPECT_EQ(Live("", Cutting("Right", -1)), noChange);
    const TestWeight weight = DecodeTestWeight("", "Right", "6", false);
    EXPECT_EQ(weight.notModified, "");
    EXPECT_EQ(weight.modified, "0");
}

TEST(Decoding, SelectsTheRunByTheNumberOfRuns) {
    struct Case {
        const char* rawText;
        const char* live;
        const char* notModified;
    };
    const Case cases[] = {
        {"...", "0", ""},
        {"11", "11", ""},
        {"11 22", "22", ""},
        {"11 22 33", "22", "22"},
        {"11 22 33 44 55", "22", "22"},
        {"  \x80 11\xFF\xFF"
         "22;;;;;;;33",
         "22", "22"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Live(c.rawText, Uncut()), c.live) << c.rawText;
        EXPECT_EQ(DecodeTestWeight(c.rawText, "Left", "9", false).notModified, c.notModified)
            << c.rawText;
    }
}

TEST(Decoding, SeparatesDigitsByEveryOtherByte) {
    for (int code = 0; code <= 255; ++code) {
        const std::string separator(1, static_cast<char>(code));
        const bool digit = code >= '0' && code <= '9';
        EXPECT_EQ(Live("11" + separator + "22", Uncut()), digit ? "11" + separator + "22" : "22")
            << code;
    }
}

TEST(Decoding, ReadsTheFractionOrTheWholePartDependingOnTheStartOfTheBuffer) {
    const std::string frame = "+001234.5\r\n";
    EXPECT_EQ(Live(Times(3, frame), Cutting("Right", 6)), noChange);
    EXPECT_EQ(Live("5\r\n" + Times(3, frame), Cutting("Right", 6)), "1234");
}

TEST(Decoding, DropsTheSignOfANegativeWeight) {
    EXPECT_EQ(Live(Times(3, "-001250\r\n"), Cutting("Right", 6)), "1250");
}

TEST(Decoding, DoesNotCutATokenShorterThanTheLength) {
    EXPECT_EQ(Live("1 250 1", Cutting("Right", 9)), "250");
    EXPECT_EQ(Live("1 250 1", Cutting("Left", 1e300)), "250");
    EXPECT_EQ(DecodeTestWeight("1 250 1", "Right", "1e300", false).modified, "250");
}

TEST(Decoding, ReadsASingleFrameLiveButNotOnTheBench) {
    EXPECT_EQ(Live("\x02+001250\x03", Cutting("Right", 6)), "1250");
    EXPECT_EQ(Live("\x02"
                   "1 001250\x03",
                   Cutting("Right", 6)),
              "1250");
    for (const char* rawText : {"\x02+001250\x03", "\x02"
                                                   "1 001250\x03"}) {
        const TestWeight weight = DecodeTestWeight(rawText, "Right", "6", false);
        EXPECT_EQ(weight.notModified, "");
        EXPECT_EQ(weight.modified, "0");
    }
}

TEST(Decoding, PutsTheBlankInFrontWhenAnUncutTokenIsReversed) {
    EXPECT_EQ(Live("1 250 1", Uncut(true)), " 052");
    EXPECT_EQ(Live("1 250", Uncut(true)), "052");
    EXPECT_EQ(Live("...", Uncut(true)), "");
}

TEST(Decoding, HasNoMinimumLengthWithoutADirection) {
    EXPECT_EQ(Live("1 7 1", Uncut()), "7");
}

TEST(Decoding, ShowsMoreThanFifteenDigitsInExponentForm) {
    EXPECT_EQ(Live("1 123456789012345 1", Uncut()), "123456789012345");
    EXPECT_EQ(Live("1 000123456789012345 1", Uncut()), "123456789012345");
    EXPECT_EQ(Live("1 1234567890123456 1", Uncut()), "1.23456789012346E+15");
    EXPECT_EQ(Live("1 1000000000000000 1", Uncut()), "1E+15");
    EXPECT_EQ(Live("1 12345678901234567890 1", Uncut()), "1.23456789012346E+19");
}

TEST(Decoding, ShowsZeroOfSeveralDigitsButNotASingleZero) {
    EXPECT_EQ(Live(Times(3, "000000\r"), Cutting("Right", 6)), "0");
    EXPECT_EQ(Live(Times(3, "0\r"), Cutting("Right", 6)), noChange);
}

TEST(Decoding, ShowsARunThatTheReadHasCutUntilTheNextRead) {
    EXPECT_EQ(Live("001250\r0012", Cutting("Right", 6)), "12");
    EXPECT_EQ(DecodeTestWeight("001250\r0012", "Right", "6", false).notModified, "");
}

TEST(Decoding, OnlyTheExactWordRightMeansTheRightEnd) {
    for (const char* direction : {"right", "RIGHT", "Right ", "", "Left", "nonsense"})
        EXPECT_EQ(Live("1 1250 1", Cutting(direction, 2)), "12") << direction;
    EXPECT_EQ(Live("1 1250 1", Cutting("Right", 2)), "50");
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "right", "2", false).modified, "12");
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Right", "2", false).modified, "50");
}

TEST(Decoding, RoundsTheLengthToTheEvenNeighbour) {
    EXPECT_EQ(Live("1 1250 1", Cutting("Left", 2.5)), "12");
    EXPECT_EQ(Live("1 1250 1", Cutting("Left", 3.5)), "1250");
    EXPECT_EQ(Live("1 1250 1", Cutting("Left", -0.5)), noChange);
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Left", "2.5", false).modified, "12");
}

TEST(Decoding, ReadsTheBenchsLengthLeniently) {
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Left", "", false).modified, "0");
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Left", "x", false).modified, "0");
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Left", " 3 digits", false).modified, "125");
}

TEST(Decoding, FailsOnANegativeLength) {
    EXPECT_EQ(FailureNumberOf([] { Live("1 1250 1", Cutting("Left", -1)); }), 5);
    EXPECT_EQ(FailureNumberOf([] { Live("no digits", Cutting("Right", -0.6)); }), 5);
    EXPECT_EQ(FailureNumberOf([] { DecodeTestWeight("1 1250 1", "Right", "-1", false); }), 5);
    EXPECT_EQ(FailureNumberOf([] { DecodeTestWeight("", "Right", "-1", false); }), 5);
    EXPECT_EQ(Live("1 1250 1", Uncut()), "1250");
}

TEST(Decoding, ReversesTheDigitsLiveButTheNumberOnTheBench) {
    EXPECT_EQ(Live("1 0120 1", Cutting("Left", 4, true)), "0210");
    EXPECT_EQ(DecodeTestWeight("1 0120 1", "Left", "4", true).modified, "021");
    EXPECT_EQ(DecodeTestWeight("1 0000 1", "Left", "4", true).modified, "0");
}

TEST(Decoding, ShowsAOneDigitCutOnTheBench) {
    EXPECT_EQ(DecodeTestWeight("1 1250 1", "Left", "1", false).modified, "1");
    EXPECT_EQ(Live("1 1250 1", Cutting("Left", 1)), noChange);
}

} // namespace
} // namespace Quillane
