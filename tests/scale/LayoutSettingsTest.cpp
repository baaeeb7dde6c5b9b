// The settings that read each layout of the simulated indicator: all are tried, on the frames of
// the tool and from every position at which a read can begin. The results must agree with the guide
// to indicators.

#include "platform/runtime/Numbers.h"
#include "scale/Decoding.h"
#include "scale/IndicatorGuide.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace Quillane {
namespace {

using Testing::Advice;
using Testing::AdviceOfTheGuide;
using Testing::Frame;
using Testing::FramesOfTheTool;
using Testing::Notation;

const std::vector<int> weights{0, 5, 20, 4320, 12540, 99990, 100000};

// The minimum number of bytes between two reads of a line of 2400 bit/s: 300 ms on the weighment
// screen and 200 ms on the bench.
constexpr std::size_t liveLook = 70;
constexpr std::size_t benchLook = 46;

struct Settings {
    std::string direction;
    int length = 0;
    bool reversed = false;

    LiveReading Live() const { return {direction, static_cast<double>(length), reversed}; }
};

std::string Named(const Settings& settings) {
    return settings.direction + " " + std::to_string(settings.length) +
           (settings.reversed ? " reversed" : "");
}

/// All settings that can be saved on the bench.
std::vector<Settings> AllSettings() {
    std::vector<Settings> all;
    for (const char* direction : {"Right", "Left"})
        for (int length = 0; length <= 9; ++length)
            for (const bool reversed : {false, true})
                all.push_back({direction, length, reversed});
    return all;
}

/// Every read of at least this size, from every position of the frame and of every length.
template <typename See>
void LookEverywhere(const Frame& frame, std::size_t least, See see) {
    std::string stream;
    while (stream.size() < least + 2 * frame.bytes.size())
        stream += frame.bytes;
    for (std::size_t start = 0; start < frame.bytes.size(); ++start)
        for (std::size_t more = 0; more < frame.bytes.size(); ++more)
            see(std::string_view(stream).substr(start, least + more));
}

struct Count {
    int looks = 0;
    int right = 0;
    int wrong = 0;

    double Share() const { return 100.0 * right / looks; }
};

Count ReadEverywhere(const Frame& frame, const Settings& settings) {
    Count count;
    LookEverywhere(frame, liveLook, [&](std::string_view look) {
        const auto shown = DecodeLiveWeight(look, settings.Live());
        ++count.looks;
        count.right += shown && Val(*shown) == frame.weight;
        count.wrong += shown && Val(*shown) != frame.weight;
    });
    return count;
}

/// The share of correct reads over all frames; none if a wrong weight is ever shown.
double Worth(const std::vector<Frame>& frames, const Settings& settings) {
    Count sum;
    for (const Frame& frame : frames) {
        const Count count = ReadEverywhere(frame, settings);
        if (count.wrong > 0)
            return 0;
        sum.looks += count.looks;
        sum.right += count.right;
    }
    return sum.Share();
}

Settings Advised(const Advice& advice) {
    return {advice.direction, static_cast<int>(Val(advice.length)), advice.reversed == "1"};
}

class LayoutSettings : public testing::Test {
protected:
    const std::map<std::string, Advice> guide = AdviceOfTheGuide();
    const std::map<std::string, std::vector<Frame>> layouts = FramesOfTheTool(weights);

    /// 12540 kg at rest.
    const Frame& Example(const std::string& layout) const {
        for (const Frame& frame : layouts.at(layout))
            if (frame.weight == 12540 && !frame.moving)
                return frame;
        throw std::out_of_range(layout);
    }
};

TEST_F(LayoutSettings, AreInTheGuideForEveryLayoutOfTheTool) {
    std::vector<std::string> listed, known;
    for (const auto& row : guide)
        listed.push_back(row.first);
    for (const auto& layout : layouts)
        known.push_back(layout.first);
    EXPECT_EQ(listed, known);
    for (const auto& [name, advice] : guide)
        EXPECT_EQ(advice.example, Notation(Example(name).bytes)) << name;
}

TEST_F(LayoutSettings, AreTheBestOfAllThatCanBeSaved) {
    for (const auto& [name, frames] : layouts) {
        Settings best;
        double most = 0;
        for (const Settings& settings : AllSettings())
            if (const double worth = Worth(frames, settings); worth > most) {
                most = worth;
                best = settings;
            }
        const Advice& advice = guide.at(name);
        if (advice.usable) {
            EXPECT_DOUBLE_EQ(Worth(frames, Advised(advice)), most)
                << name << ": " << Named(best) << " is better";
        } else {
            EXPECT_NEAR(most, advice.right, 1) << name << " is read by " << Named(best);
            EXPECT_LT(most, 20) << name;
        }
    }
}

TEST_F(LayoutSettings, NeverShowAWrongWeightAndReadAsOftenAsInTheGuide) {
    for (const auto& [name, frames] : layouts) {
        const Advice& advice = guide.at(name);
        if (!advice.usable)
            continue;
        for (const Frame& frame : frames) {
            const Count count = ReadEverywhere(frame, Advised(advice));
            const std::string what = name + " " + std::to_string(frame.weight);
            EXPECT_EQ(count.wrong, 0) << what;
            const bool shown = frame.weight >= advice.leastWeight;
            EXPECT_GE(count.Share(), shown ? advice.right - 1 : 0) << what;
            EXPECT_LE(count.Share(), shown ? advice.rightAtMost + 1 : 0) << what;
        }
    }
}

/// The results of reads of such frames, from every position.
std::set<std::string> ShownOf(const std::string& frame, const Settings& settings) {
    std::set<std::string> shown;
    LookEverywhere({.bytes = frame}, liveLook, [&](std::string_view look) {
        if (const auto weight = DecodeLiveWeight(look, settings.Live()))
            shown.insert(*weight);
    });
    return shown;
}

using Shown = std::set<std::string>;

TEST_F(LayoutSettings, ReadTheNumberOfAnErrorText) {
    const auto shown = [&](const std::string& layout, const std::string& frame) {
        return ShownOf(frame, Advised(guide.at(layout)));
    };
    EXPECT_EQ(shown("plain", "+Err 23 kg\r\n"), Shown{"23"});
    EXPECT_EQ(shown("checked", "\x02+Err 2307F\x03"), Shown{"2307"});
    EXPECT_EQ(shown("status-bytes", "\x02*0 Err 23000000\r)"), Shown{"230000"});
}

TEST_F(LayoutSettings, ReadTheDigitsThatAWrongParityLeaves) {
    const Settings usual{"Right", 6, false};
    EXPECT_EQ(ShownOf("+0\xB1\xB2"
                      "5\xB4"
                      "0\xA0\xEB\xE7\x8D\n",
                      usual),
              Shown{});
    EXPECT_EQ(ShownOf("+0\xB1"
                      "3590\xA0\xEB\xE7\x8D\n",
                      usual),
              Shown{"3590"});
    EXPECT_EQ(ShownOf("\xAB\xB0"
                      "12\xB5"
                      "4\xB0 kg\r\x8A",
                      usual),
              Shown{"12"});
    EXPECT_EQ(ShownOf("\xAB\xB0"
                      "1\xB3\xB5\xB9\xB0 kg\r\x8A",
                      usual),
              Shown{});
}

TEST_F(LayoutSettings, GiveTheResultsOfTheGuideOnTheBench) {
    for (const auto& [name, advice] : guide) {
        const Settings settings = advice.usable ? Advised(advice) : Settings{"Right", 6, false};
        Count count;
        LookEverywhere(Example(name), benchLook, [&](std::string_view look) {
            const TestWeight shown = DecodeTestWeight(
                look, settings.direction, std::to_string(settings.length), settings.reversed);
            ++count.looks;
            count.right += shown.notModified == advice.benchNotModified &&
                           shown.modified == advice.benchModified;
        });
        EXPECT_NEAR(count.Share(), advice.benchRight, 1) << name;
    }
}

} // namespace
} // namespace Quillane
