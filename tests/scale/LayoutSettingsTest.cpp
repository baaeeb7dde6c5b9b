#include "platform/runtime/Numbers.h"
#include "scale/Decoding.h"

#include <gtest/gtest.h>

#include <array>

namespace Quillane {
namespace {

/// How an indicator writes some weights, and the settings that docs/indicators.md gives for it.
struct Layout {
    std::string name;
    LiveReading settings;
    std::array<std::string, 4> frames; ///< of 0, 20, 4320 and 12540 kg
    int leastWeight;                   ///< below it nothing is shown
    double rightInTen;                 ///< of ten reads, about
};

constexpr std::array<int, 4> weights{0, 20, 4320, 12540};

const std::vector<Layout>& Layouts() {
    static const std::vector<Layout> layouts{
        {"plain",
         {"Right", 6, false},
         {"+000000 kg\r\n", "+000020 kg\r\n", "+004320 kg\r\n", "+012540 kg\r\n"},
         0,
         10},
        {"header",
         {"Right", 7, false},
         {"ST,GS,+0000000kg\r\n", "ST,GS,+0000020kg\r\n", "US,GS,+0004320kg\r\n",
          "ST,GS,+0012540kg\r\n"},
         0,
         10},
        {"header-blank",
         {"Right", 6, false},
         {"ST,GS,+ 000000kg\r\n", "ST,GS,+ 000020kg\r\n", "US,GS,+ 004320kg\r\n",
          "ST,GS,+ 012540kg\r\n"},
         0,
         10},
        {"checked",
         {"Left", 6, false},
         {"\x02+00000001B\x03", "\x02+000020019\x03", "\x02+00432001E\x03", "\x02+012540019\x03"},
         0,
         10},
        {"equals",
         {"Right", 8, false},
         {"=00000000", "=00000020", "=00004320", "=00012540"},
         0,
         10},
        {"equals-reversed",
         {"Left", 7, true},
         {"=00000000", "=02000000", "=02340000", "=04521000"},
         0,
         10},
        {"cr-first",
         {"Right", 6, false},
         {"\r+000000  kg g  \x03", "\r+000020  kg g  \x03", "\r+004320m kg g  \x03",
          "\r+012540  kg g  \x03"},
         0,
         10},
        {"stx-unit",
         {"Right", 7, false},
         {"\x02       0KG \r\n", "\x02      20KG \r\n", "\x02    4320KGM\r\n",
          "\x02   12540KG \r\n"},
         10,
         10},
        {"status-bytes",
         {"Left", 6, false},
         {"\x02*0 000000000000\r\x37", "\x02*0 000020000000\r\x35", "\x02*0 004320000000\r.",
          "\x02*0 012540000000\r+"},
         0,
         2.3},
        {"lf-first",
         {"Right", 7, false},
         {"\nZ1G           0kg \r", "\n 1G          20kg \r", "\n 1GM       4320kg \r",
          "\n 1G       12540kg \r"},
         10,
         3.5},
        {"one-decimal",
         {"Right", 6, false},
         {"ST,GS,+000000.0kg\r\n", "ST,GS,+000020.5kg\r\n", "ST,GS,+004320.5kg\r\n",
          "ST,GS,+012540.5kg\r\n"},
         0,
         1},
    };
    return layouts;
}

struct Count {
    int right = 0;
    int none = 0;
    int wrong = 0;
};

/// Reads from every place of the frame, each of every length that one look may bring.
Count ReadEverywhere(const std::string& frame, const LiveReading& settings, int weight) {
    std::string stream;
    while (stream.size() < 70 + 2 * frame.size())
        stream += frame;
    Count count;
    for (std::size_t start = 0; start < frame.size(); ++start)
        for (std::size_t more = 0; more < frame.size(); ++more) {
            const auto shown =
                DecodeLiveWeight(std::string_view(stream).substr(start, 70 + more), settings);
            ++(!shown ? count.none : Val(*shown) == weight ? count.right : count.wrong);
        }
    return count;
}

TEST(LayoutSettings, NeverShowAWrongWeightAndReadAsOftenAsTold) {
    for (const Layout& layout : Layouts())
        for (std::size_t i = 0; i < weights.size(); ++i) {
            const Count count = ReadEverywhere(layout.frames[i], layout.settings, weights[i]);
            const bool shown = weights[i] >= layout.leastWeight;
            const double share = 10.0 * count.right / (count.right + count.none + count.wrong);
            EXPECT_EQ(count.wrong, 0) << layout.name << " " << weights[i];
            EXPECT_NEAR(share, shown ? layout.rightInTen : 0, 0.7)
                << layout.name << " " << weights[i];
        }
}

} // namespace
} // namespace Quillane
