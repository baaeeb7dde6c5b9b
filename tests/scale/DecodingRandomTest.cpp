#include "scale/Decoding.h"

#include "platform/runtime/Failure.h"
#include "scale/DecodingReference.h"

#include <gtest/gtest.h>

#include <random>

namespace Quillane {
namespace {

/// An endless sequence of texts and settings, the same in each run.
class Chance {
public:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(generator_);
    }

    template <typename Item, std::size_t Count>
    Item OneOf(const Item (&items)[Count]) {
        return items[Below(Count)];
    }

    /// Any bytes; bytes that are mostly digits; digits and blanks; or digit runs and runs of
    /// separators, both of any length.
    std::string Text() {
        const std::size_t kind = Below(4);
        std::string text;
        for (std::size_t left = Below(80); left > 0; --left)
            text += Piece(kind);
        return text;
    }

    LiveReading Reading() {
        LiveReading reading;
        if (Below(4) > 0)
            reading.direction = OneOf({"Right", "Left", "right", ""});
        reading.length = OneOf({-2.0, -0.5, 0.0, 0.5, 1.0, 2.0, 2.5, 3.0, 5.0, 6.0, 9.0, 40.0});
        reading.reversed = Below(2) == 0;
        return reading;
    }

private:
    std::string Piece(std::size_t kind) {
        switch (kind) {
        case 0:
            return {static_cast<char>(Below(256))};
        case 1:
            return {Below(5) == 0 ? static_cast<char>(Below(256)) : Digit()};
        case 2:
            return {Below(2) == 0 ? ' ' : Digit()};
        default:
            return Below(2) == 0 ? std::string(Below(12), Digit())
                                 : std::string(Below(12), OneOf({' ', ',', '\r', '\x02', '\xB0'}));
        }
    }

    char Digit() { return static_cast<char>('0' + Below(10)); }

    std::mt19937 generator_{20261121};
};

/// The result; for a failure its number.
template <typename Decode>
std::string Outcome(const Decode& decode) {
    try {
        return decode();
    } catch (const Failure& failure) {
        return "failure " + std::to_string(failure.Number());
    }
}

std::string Shown(const std::optional<std::string>& weight) {
    return weight ? "\"" + *weight + "\"" : "no change";
}

std::string Shown(const TestWeight& weight) {
    return "\"" + weight.notModified + "\" \"" + weight.modified + "\"";
}

constexpr int rounds = 20'000;

TEST(Decoding, AgreesWithTheStepsOnAnyTextLive) {
    Chance chance;
    for (int round = 0; round < rounds; ++round) {
        const std::string text = chance.Text();
        const LiveReading reading = chance.Reading();
        ASSERT_EQ(Outcome([&] { return Shown(DecodeLiveWeight(text, reading)); }), Outcome([&] {
                      return Shown(DecodingReference::DecodeLiveWeight(text, reading));
                  }))
            << testing::PrintToString(text) << " " << reading.direction.value_or("(none)") << " "
            << reading.length << " " << reading.reversed;
    }
}

TEST(Decoding, AgreesWithTheStepsOnAnyTextOnTheBench) {
    Chance chance;
    for (int round = 0; round < rounds; ++round) {
        const std::string text = chance.Text();
        const std::string direction = chance.OneOf({"Right", "Left", "right", ""});
        const std::string length = chance.OneOf({"", "-1", "0", "1", "2.5", "3", "6", "9", "x"});
        const bool reversed = chance.Below(2) == 0;
        ASSERT_EQ(
            Outcome([&] { return Shown(DecodeTestWeight(text, direction, length, reversed)); }),
            Outcome([&] {
                return Shown(
                    DecodingReference::DecodeTestWeight(text, direction, length, reversed));
            }))
            << testing::PrintToString(text) << " " << direction << " " << length << " " << reversed;
    }
}

} // namespace
} // namespace Quillane
