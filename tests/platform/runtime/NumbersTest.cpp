#include "platform/runtime/Numbers.h"

#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace Quillane {
namespace {

constexpr double largest = std::numeric_limits<double>::max();

struct Read {
    std::string text;
    double value;
};

TEST(Val, LeadingNumberIsReadFromAnyText) {
    const Read cases[] = {
        {"", 0},
        {" ", 0},
        {"abc", 0},
        {"0", 0},
        {"12540", 12540},
        {"007", 7},
        {"1250.5", 1250.5},
        {"1250kg", 1250},
        {".5", 0.5},
        {"5.", 5},
        {"-40", -40},
        {"+40", 40},
        {"-.5", -0.5},
        {"--5", 0},
        {"-", 0},
        {".", 0},
        {"1.5.2", 1.5},
        {"1,250", 1},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"1d3", 1000},
        {"1D-2", 0.01},
        {"1e", 1},
        {"1e+", 1},
        {"1ex", 1},
        {"e5", 0},
        {"5-3", 5},
        {"1250\r\n", 1250},
        {"inf", 0},
        {"nan", 0},
        {"0x10", 0},
        {"\xC3\xA9"
         "5",
         0},
    };
    for (const Read& c : cases)
        EXPECT_EQ(Val(c.text), c.value) << c.text;
}

TEST(Val, BlanksTabsAndLineFeedsAreSkippedAnywhere) {
    EXPECT_EQ(Val("  12 34"), 1234);
    EXPECT_EQ(Val("1\t2\n.\n5"), 12.5);
    EXPECT_EQ(Val("- 7"), -7);
    EXPECT_EQ(Val("1 e 3"), 1000);
    EXPECT_EQ(Val("1\r2"), 1) << "a carriage return ends the number";
}

TEST(Val, NumberBeyondADoubleDoesNotFail) {
    EXPECT_EQ(Val("1e400"), largest);
    EXPECT_EQ(Val("-1e400"), -largest);
    EXPECT_EQ(Val("1e99999999999999999999"), largest);
    EXPECT_EQ(Val("1e-99999999999999999999"), 0);
    EXPECT_EQ(Val("1e-400"), 0);
    EXPECT_EQ(Val("-1e-400"), 0);
    EXPECT_EQ(Val(std::string(400, '9')), largest);
    EXPECT_EQ(Val(std::string(400, '9') + "e-5"), largest);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1e10"), 0);
    EXPECT_EQ(Val(std::string(400, '0') + "5"), 5);
    EXPECT_EQ(Val("0e400"), 0);
}

TEST(Val, DecimalPointDoesNotDependOnTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    // If the locale is not installed, the previous one is still active.
    for (const char* language : {"de_DE.UTF-8", "fr_FR.UTF-8", "ur_PK.UTF-8", "C.UTF-8"}) {
        std::setlocale(LC_ALL, language);
        EXPECT_EQ(Val("205.5"), 205.5) << language;
        EXPECT_EQ(NumberText(205.5), "205.5") << language;
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(RoundWeight, TiesGoToTheEvenNeighbour) {
    const std::pair<double, double> cases[] = {
        {2.5, 2},     {3.5, 4},     {-2.5, -2}, {-3.5, -4},      {102.75, 103},
        {102.5, 102}, {103.5, 104}, {0.5, 0},   {0.49999999, 0}, {0.50000001, 1},
        {-0.6, -1},   {8117, 8117}, {-40, -40}, {4870.2, 4870},  {8116.8, 8117},
    };
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(RoundWeight(value), rounded) << value;
}

TEST(WeightText, IsPlainDigits) {
    EXPECT_EQ(WeightText(8117), "8117");
    EXPECT_EQ(WeightText(-40), "-40");
    EXPECT_EQ(WeightText(0), "0");
    EXPECT_EQ(WeightText(RoundWeight(-0.3)), "0") << "no minus zero";
    EXPECT_EQ(WeightText(1e15), "1000000000000000");
}

TEST(NumberText, HasAtMostFifteenDigitsAndNoTrailingZeros) {
    const std::pair<double, const char*> cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {205.5, "205.5"},
        {12540, "12540"},
        {-40, "-40"},
        {0.1, "0.1"},
        {-0.25, "-0.25"},
        {81.17, "81.17"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {100.0 / 3, "33.3333333333333"},
        {0.00001, "0.00001"},
        {123456789012345, "123456789012345"},
        {999999999999999, "999999999999999"},
        {99999999999999.95, "100000000000000"},
        {1e15, "1E+15"},
        {999999999999999.9, "1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {-1234567890123456, "-1.23456789012346E+15"},
        {12345678901234567890.0, "1.23456789012346E+19"},
        {1e100, "1E+100"},
        {1.0 / 30, "3.33333333333333E-02"},
        {1.5e-20, "1.5E-20"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(NumberText(value), text);
}

TEST(NumberText, InfiniteNumberFails) {
    EXPECT_EQ(FailureNumberOf([] { NumberText(largest * 10); }), 6);
    EXPECT_EQ(FailureNumberOf([] { WeightText(-largest * 10); }), 6);
    EXPECT_EQ(NumberText(largest), "1.79769313486232E+308");
}

TEST(ToDouble, WholeTextMustBeOneNumber) {
    EXPECT_EQ(ToDouble("8100"), 8100);
    EXPECT_EQ(ToDouble("  -8100.25 "), -8100.25);
    EXPECT_EQ(ToDouble("1e3"), 1000);
    for (const char* text : {"", " ", "x", "1x", "1 2", "1.2.3", "1,5", "-", "1e", "\t1"})
        EXPECT_EQ(FailureNumberOf([&] { ToDouble(text); }), 13) << text;
    EXPECT_EQ(FailureNumberOf([] { ToDouble("1e400"); }), 6);
    EXPECT_EQ(ToDouble("1e-400"), 0);
}

TEST(ToInteger, TiesGoToTheEvenNeighbourWithinSixteenBits) {
    EXPECT_EQ(ToInteger("1"), 1);
    EXPECT_EQ(ToInteger(" 2 "), 2);
    EXPECT_EQ(ToInteger("2.5"), 2);
    EXPECT_EQ(ToInteger("3.5"), 4);
    EXPECT_EQ(ToInteger("32767.4"), 32767);
    EXPECT_EQ(ToInteger("-32768.5"), -32768);
    EXPECT_EQ(FailureNumberOf([] { ToInteger("32767.5"); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToInteger("-32769"); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToInteger("COM1"); }), 13);
    EXPECT_EQ(FailureNumberOf([] { ToInteger(std::nan("")); }), 6);
}

TEST(ToLong, TiesGoToTheEvenNeighbourWithinThirtyTwoBits) {
    EXPECT_EQ(ToLong("2147483647"), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(ToLong(0.5), 0);
    EXPECT_EQ(ToLong("1.5"), 2);
    EXPECT_EQ(FailureNumberOf([] { ToLong("2147483648"); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToLong(-2147483649.0); }), 6);
}

TEST(Divide, ZeroDivisorFails) {
    EXPECT_EQ(Divide(8117, 100), 81.17);
    EXPECT_EQ(FailureNumberOf([] { Divide(8117, 0); }), 11);
    EXPECT_EQ(FailureNumberOf([] { Divide(-1, 0); }), 11);
    EXPECT_EQ(FailureNumberOf([] { Divide(0, 0); }), 6);
}

TEST(Currency, HasFourDecimals) {
    EXPECT_EQ(ToCurrency(1.23456).tenThousandths, 12346);
    EXPECT_EQ(ToCurrency(-1.23456).tenThousandths, -12346);
    EXPECT_EQ(ToCurrency(0.03125).tenThousandths, 312) << "ties to even";
    EXPECT_EQ(ToCurrency(0.09375).tenThousandths, 938);
    EXPECT_EQ(ToCurrency(60).ToDouble(), 60);
    EXPECT_EQ(FailureNumberOf([] { ToCurrency(1e15); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToCurrency(-1e15); }), 6);
    EXPECT_EQ(FailureNumberOf([] { ToCurrency(largest); }), 6);
}

TEST(Currency, AddsExactly) {
    Currency sum;
    for (int i = 0; i < 10; ++i)
        sum += ToCurrency(0.1);
    EXPECT_EQ(sum, ToCurrency(1));
    Currency high = ToCurrency(922337203685477.0);
    EXPECT_EQ(FailureNumberOf([&] { high += high; }), 6);
}

TEST(Currency, ConvertsToASixteenBitWholeNumber) {
    EXPECT_EQ(ToInteger(ToCurrency(100)), 100);
    EXPECT_EQ(ToInteger(ToCurrency(100.5)), 100);
    EXPECT_EQ(ToInteger(ToCurrency(101.5)), 102);
    EXPECT_EQ(ToInteger(ToCurrency(32767)), 32767);
    EXPECT_EQ(FailureNumberOf([] { ToInteger(ToCurrency(32768)); }), 6);
}

} // namespace
} // namespace Quillane
