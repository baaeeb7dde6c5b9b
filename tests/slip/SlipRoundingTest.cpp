#include "slip/SlipRounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

namespace Quillane {
namespace {

using Figures = std::vector<double>;

TEST(SlipRounding, FormatsKilogramsInTwoForms) {
    struct Case {
        double kilograms;
        const char* inColumn;
        const char* alone;
    };
    const Case cases[] = {{0, "0.00", "0"},
                          {81.17, "81.17", "81.17"},
                          {4860, "4860.00", "4860"},
                          {8117.000000001, "8117.00", "8117"},
                          {1159.5714285714, "1159.57", "1159.57"},
                          {-0.001, "0.00", "0"},
                          {-40.5, "-40.50", "-40.5"},
                          {1e9, "1000000000.00", "1000000000"}};
    for (const Case& each : cases) {
        EXPECT_EQ(ColumnKilograms(each.kilograms), each.inColumn);
        EXPECT_EQ(Kilograms(each.kilograms), each.alone);
    }
}

TEST(SlipRounding, RoundsTiesOfHundredthsAwayFromZero) {
    const std::pair<double, const char*> cases[] = {
        {1093.125, "1093.13"}, {1093.115, "1093.12"}, {-1093.125, "-1093.13"},
        {81.175, "81.18"},     {1.005, "1.01"},       {0.005, "0.01"},
        {-0.005, "-0.01"},     {1093.1249, "1093.12"}};
    for (const auto& [kilograms, shown] : cases)
        EXPECT_EQ(ColumnKilograms(kilograms), shown);
}

TEST(SlipRounding, CountsBagsInFourDecimals) {
    EXPECT_EQ(BagCount(100), "100");
    EXPECT_EQ(BagCount(12.5), "12.5");
    EXPECT_EQ(BagCount(0.1 + 0.2), "0.3");
    EXPECT_EQ(BagCount(12.34565), "12.3457");
}

TEST(SlipRounding, RoundsToTheNearestHundredthIfTheSumAllowsIt) {
    EXPECT_EQ(RoundedTogether({}), Figures{});
    EXPECT_EQ(RoundedTogether({1093.125}), Figures{1093.13});
    EXPECT_EQ(RoundedTogether({4870.2, 3246.8}), (Figures{4870.2, 3246.8}));
    EXPECT_EQ(RoundedTogether({10.003, 10.003, 9.997, 9.997}), (Figures{10, 10, 10, 10}));
}

TEST(SlipRounding, MovesTheFiguresThatWereRoundedMost) {
    EXPECT_EQ(RoundedTogether({1.001, 1.004, 1.004, 1.001}), (Figures{1, 1, 1.01, 1}));
    EXPECT_EQ(RoundedTogether({1.006, 1.009, 1.006, 1.009}), (Figures{1.01, 1.01, 1, 1.01}));
    EXPECT_EQ(RoundedTogether({1.005, 1.005, 1.005}), (Figures{1.01, 1.01, 1}));
    EXPECT_EQ(RoundedTogether({-1.005, 2, -1.005}), (Figures{-1.01, 2, -1}));
}

TEST(SlipRounding, AddsUpForAnyFigures) {
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> kilograms(-500, 9000);
    std::uniform_int_distribution<int> counts(1, 200);
    const auto hundredths = [](double figure) { return std::llround(figure * 100); };
    for (int turn = 0; turn < 500; ++turn) {
        Figures figures(static_cast<std::size_t>(counts(random)));
        for (double& figure : figures)
            figure = kilograms(random);
        const Figures rounded = RoundedTogether(figures);
        long long sum = 0;
        for (std::size_t index = 0; index < figures.size(); ++index) {
            EXPECT_LT(std::abs(rounded[index] - figures[index]), 0.01 + 1e-9);
            sum += hundredths(rounded[index]);
        }
        EXPECT_EQ(sum, hundredths(std::accumulate(figures.begin(), figures.end(), 0.0)));
    }
}

} // namespace
} // namespace Quillane
