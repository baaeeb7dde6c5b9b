#include "office/daybook/Picture.h"

#include "office/daybook/Cells.h"
#include "slip/SlipObjects.h"

#include <algorithm>
#include <cmath>

namespace Quillane::Office {

namespace {

using namespace SlipObjects;
using Objects = std::vector<ReportObject>;

constexpr int barGreen = 0x6F8F3A;
constexpr int gridGrey = 0xD8D8D8;
constexpr int titleHeight = 420;
constexpr int labelHeight = 260;

struct Bar {
    std::string label;
    std::int64_t net = 0; ///< hundredths of a kilogram
};

std::string Kilograms(std::int64_t hundredths) {
    return Cell{.kind = Cell::Kind::Number, .number = hundredths, .decimals = WeightDecimals}
        .Shown();
}

std::int64_t Highest(const std::vector<Bar>& bars) {
    std::int64_t highest = 0;
    for (const Bar& bar : bars)
        highest = std::max(highest, bar.net);
    return highest;
}

/// The smallest step of 1, 2 or 5 times a power of ten that reaches a value in at most five steps.
std::int64_t StepFor(std::int64_t highest) {
    constexpr std::int64_t kilogram = 100;
    for (std::int64_t power = kilogram;; power *= 10)
        for (const std::int64_t step : {power, 2 * power, 5 * power})
            if (5 * step >= highest)
                return step;
}

ReportObject Bare(ReportObject box) {
    box.LineColor = -1;
    return box;
}

ReportObject Title(int top, const std::string& text) {
    return Coloured(Bold(Sized(Text({0, top, PictureWidth, titleHeight}, text), 12)), DarkGreen);
}

// ---- Vertical bars for the days or months ----

constexpr int mostDays = 366;

std::vector<Bar> BarsByTime(const DayBookSums& sums, const DayBookNames& names) {
    std::vector<NamedSum> days = sums.By(SumsBy::Day, names);
    const bool byMonth = days.size() > mostDays;
    std::vector<Bar> bars;
    for (const NamedSum& day : days) {
        const std::string label = byMonth ? day.name.substr(3) : day.name; // MM/yyyy
        if (bars.empty() || bars.back().label != label)
            bars.push_back({label});
        bars.back().net += day.sum.figures.net;
    }
    return bars;
}

struct Frame {
    int left, top, width, height;
};

/// The grid lines, each with its weight at the left.
void AddScale(Objects& objects, const Frame& frame, std::int64_t step, std::int64_t steps) {
    for (std::int64_t line = 0; line <= steps; ++line) {
        const int y = frame.top + frame.height - static_cast<int>(frame.height * line / steps);
        ReportObject grid = At(ReportObjectKind::Line, {frame.left, y, frame.width, 0});
        grid.LineColor = gridGrey;
        objects.push_back(grid);
        objects.push_back(
            Sized(Coloured(Aligned(Text({0, y - labelHeight / 2, frame.left - 100, labelHeight},
                                        Kilograms(line * step)),
                                   ReportAlignment::Right),
                           CaptionGrey),
                  8));
    }
}

/// The number of bars for each label that fits.
int LabelStride(std::size_t bars, int width) {
    constexpr int labelWidth = 1'000;
    const int most = std::max(width / labelWidth, 1);
    return static_cast<int>((bars + static_cast<std::size_t>(most) - 1) /
                            static_cast<std::size_t>(most));
}

void AddBars(Objects& objects, const Frame& frame, const std::vector<Bar>& bars,
             std::int64_t scale) {
    const int count = static_cast<int>(bars.size());
    constexpr int widest = 1'100;
    const int pitch = std::min(frame.width / count, widest);
    const int stride = LabelStride(bars.size(), pitch * count);
    for (int index = 0; index < count; ++index) {
        const Bar& bar = bars[static_cast<std::size_t>(index)];
        const int left = frame.left + index * pitch;
        const auto height =
            static_cast<int>(static_cast<double>(std::max<std::int64_t>(bar.net, 0)) /
                             static_cast<double>(scale) * frame.height);
        const int gap = pitch / 5;
        if (height > 0)
            objects.push_back(Bare(FilledBox({left + gap / 2, frame.top + frame.height - height,
                                              std::max(pitch - gap, 10), height},
                                             barGreen)));
        if (index % stride == 0)
            objects.push_back(Sized(
                Coloured(Text({left, frame.top + frame.height + 40, 1'000, labelHeight}, bar.label),
                         CaptionGrey),
                8));
    }
}

void AddTime(Objects& objects, const std::vector<Bar>& bars, int top) {
    constexpr Frame inside{1'500, titleHeight + 200, PictureWidth - 1'500, 3'000};
    const bool byMonth = !bars.empty() && bars.front().label.size() < 10;
    objects.push_back(Title(top, byMonth ? "Net weight by month, kg" : "Net weight by day, kg"));
    const std::int64_t step = StepFor(Highest(bars));
    const std::int64_t steps = std::max<std::int64_t>((Highest(bars) + step - 1) / step, 1);
    const Frame frame{inside.left, top + inside.top, inside.width, inside.height};
    AddScale(objects, frame, step, steps);
    if (!bars.empty())
        AddBars(objects, frame, bars, step * steps);
}

// ---- Horizontal bars for the commodities ----

constexpr std::size_t mostCommodities = 8;

std::vector<Bar> BarsByCommodity(const DayBookSums& sums, const DayBookNames& names) {
    std::vector<Bar> bars;
    for (const NamedSum& commodity : sums.By(SumsBy::Commodity, names))
        bars.push_back({commodity.name, commodity.sum.figures.net});
    std::ranges::stable_sort(bars, std::greater(), &Bar::net);
    if (bars.size() <= mostCommodities)
        return bars;
    Bar others{"Others"};
    for (std::size_t index = mostCommodities - 1; index < bars.size(); ++index)
        others.net += bars[index].net;
    bars.resize(mostCommodities - 1);
    bars.push_back(others);
    return bars;
}

void AddCommodities(Objects& objects, const std::vector<Bar>& bars, int top) {
    constexpr int rowHeight = 370;
    constexpr int left = 3'400;
    constexpr int longest = PictureWidth - left - 1'900;
    objects.push_back(Title(top, "Net weight by commodity, kg"));
    const double scale = static_cast<double>(std::max<std::int64_t>(Highest(bars), 1));
    int rowTop = top + titleHeight + 60;
    for (const Bar& bar : bars) {
        const int width = static_cast<int>(static_cast<double>(std::max<std::int64_t>(bar.net, 0)) /
                                           scale * longest);
        objects.push_back(Aligned(Text({0, rowTop, left - 150, rowHeight - 60}, bar.label),
                                  ReportAlignment::Right));
        if (width > 0)
            objects.push_back(Bare(FilledBox({left, rowTop, width, rowHeight - 90}, barGreen)));
        objects.push_back(
            Text({left + width + 120, rowTop, 1'780, rowHeight - 60}, Kilograms(bar.net)));
        rowTop += rowHeight;
    }
}

} // namespace

std::vector<ReportObject> Picture(const DayBookSums& sums, const DayBookNames& names, int top) {
    constexpr int commoditiesTop = 4'500;
    Objects objects;
    AddTime(objects, BarsByTime(sums, names), top);
    AddCommodities(objects, BarsByCommodity(sums, names), top + commoditiesTop);
    return objects;
}

PictureReport::PictureReport(const DayBookSums& sums, const DayBookNames& names) : Report(0) {
    Paper = {PictureWidth, PictureHeight, 0, 0, 0, 0};
    Sections = {{.Name = "Picture",
                 .Height = PictureHeight,
                 .Objects = Picture(sums, names, 0),
                 .Kind = ReportSectionKind::ReportHeader}};
}

} // namespace Quillane::Office
