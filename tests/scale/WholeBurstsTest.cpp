// The readings of an indicator that pauses between its frames, in simulated time. The port is
// opened at every position of a frame and its pause, at all rates in use. The results must agree
// with the guide to indicators.

#include "scale/IndicatorGuide.h"
#include "scale/PausingLine.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace Quillane {
namespace {

using namespace std::chrono_literals;
using Testing::AdviceOfTheGuide;
using Testing::Count;
using Testing::Frame;
using Testing::FramesOfTheTool;
using Testing::PausingLine;
using Testing::Readings;
using Testing::WrongOfPauses;

const LiveReading usual{"Right", 6, false};

/// All readings of runs that start at all positions, at this distance.
Readings ReadFromEverywhere(PausingLine line, PausingLine::Duration step,
                            const LiveReading& settings = usual, double weight = 12540) {
    const auto frame = static_cast<int>(line.frame.size()) * PausingLine::Duration(10s) / line.rate;
    Readings readings;
    for (line.start = {}; line.start < frame + line.pause; line.start += step)
        Count(readings, line, settings, weight);
    return readings;
}

/// A line of the table of counts that this program prints.
void Print(const PausingLine& line, const Readings& readings) {
    std::printf("%5d bit/s, pause %4d ms, %s: %8d readings, %7d wrong, %5.2f %%\n", line.rate,
                static_cast<int>(std::chrono::round<std::chrono::milliseconds>(line.pause).count()),
                line.leastBursts > 0 ? "whole bursts" : "as it comes ", readings.all,
                readings.wrong, 100.0 * readings.wrong / readings.all);
}

class WholeBursts : public testing::TestWithParam<int> {
protected:
    /// With pauses of 0.1 to 2 s: no reading is wrong, and there are readings.
    void ExpectNoneWrong(PausingLine line) {
        line.rate = GetParam();
        for (auto pause = 100ms; pause <= 2000ms; pause += 50ms) {
            line.pause = pause;
            const Readings readings = ReadFromEverywhere(line, 1ms);
            Print(line, readings);
            EXPECT_EQ(readings.wrong, 0) << "pause " << pause.count() << " ms";
            EXPECT_EQ(readings.right, readings.all) << "pause " << pause.count() << " ms";
            // Every second pause brings one, and the longest is two seconds.
            EXPECT_GT(readings.all, 2 * pause / 1ms) << "pause " << pause.count() << " ms";
        }
    }
};

INSTANTIATE_TEST_SUITE_P(AtEachRate, WholeBursts, testing::Values(1200, 2400, 9600));

TEST_P(WholeBursts, ShowNoCutWeight) {
    ExpectNoneWrong({});
}

TEST_P(WholeBursts, ShowNoCutWeightThroughAnAdapterThatCollectsBytes) {
    ExpectNoneWrong({.adapter = 16ms});
}

TEST_P(WholeBursts, ShowNoCutWeightIfTheStationIsBusyBetweenItsReads) {
    ExpectNoneWrong({.adapter = 16ms, .busyAtMost = 250ms});
}

TEST_P(WholeBursts, AreNeededAsOftenAsInTheGuide) {
    for (const auto& [pause, wrong] : WrongOfPauses()) {
        const PausingLine line{.rate = GetParam(), .pause = pause, .leastBursts = 0, .time = 30s};
        const Readings readings = ReadFromEverywhere(line, 1ms);
        Print(line, readings);
        EXPECT_NEAR(100.0 * readings.wrong / readings.all, wrong.at(GetParam()), 1)
            << "pause " << pause.count() << " ms";
    }
}

TEST(WholeBurstsOfLayouts, AreReadWithTheSettingsOfTheGuide) {
    const auto guide = AdviceOfTheGuide();
    for (const auto& [name, frames] : FramesOfTheTool({0, 20, 4320, 12540, 100000})) {
        const auto& advice = guide.at(name);
        if (!advice.usable)
            continue;
        const LiveReading settings{advice.direction, std::stod(advice.length),
                                   advice.reversed == "1"};
        for (const Frame& frame : frames) {
            const Readings readings = ReadFromEverywhere({.frame = frame.bytes, .pause = 250ms},
                                                         5ms, settings, frame.weight);
            const bool shown = frame.weight >= advice.leastWeight;
            EXPECT_GT(readings.all, 0);
            EXPECT_EQ(readings.wrong, 0) << name << " " << frame.weight;
            EXPECT_EQ(readings.right, shown ? readings.all : 0) << name << " " << frame.weight;
        }
    }
}

// The bench reads a number only if a third run follows.
TEST(WholeBurstsOnTheBench, AreThreeAtATimeSoThatANumberIsShown) {
    const auto shown = [](int leastBursts) {
        int right = 0, all = 0;
        PausingLine{.pause = 500ms, .tick = 200ms, .leastBursts = leastBursts}.Read(
            [&](const std::string& rawText) {
                ++all;
                right += DecodeTestWeight(rawText, "Right", "6", false).notModified == "012540";
            });
        return right == all ? "each" : right == 0 ? "none" : "some";
    };
    EXPECT_STREQ(shown(3), "each");
    EXPECT_STREQ(shown(2), "none");
}

} // namespace
} // namespace Quillane
