#include "slip/SlipParts.h"
#include "slip/SlipRounding.h"

namespace Quillane::SlipParts {

using namespace SlipObjects;

namespace {

constexpr auto Right = ReportAlignment::Right;
constexpr auto Centre = ReportAlignment::Centre;

using Condition = std::function<bool(const ReportContext&)>;

const LoadWeights& WeightsIn(const ReportContext& context) {
    return FiguresOf(context).weights;
}

bool IsFirstWeighing(const ReportContext& context) {
    return WeightsIn(context).firstWeighing != FirstWeighing::No;
}

bool IsNoFirstWeighing(const ReportContext& context) {
    return !IsFirstWeighing(context);
}

// ---- A truck that has been weighed once ----

std::string FirstWeighingNotice(const ReportContext& context) {
    switch (WeightsIn(context).firstWeighing) {
    case FirstWeighing::LoadedTruck:
        return "FIRST WEIGHING - TARE TO FOLLOW";
    case FirstWeighing::EmptyTruck:
        return "FIRST WEIGHING - GROSS TO FOLLOW";
    case FirstWeighing::No:
        break;
    }
    return {};
}

int AddNotice(Objects& objects, int top) {
    constexpr int height = 620;
    ReportObject notice = Formula({0, top, PageWidth, height}, "Notice", FirstWeighingNotice);
    notice = Cell(Bold(Sized(Aligned(std::move(notice), Centre), 22)), HeadGreen);
    objects.push_back(Suppressed(std::move(notice), IsNoFirstWeighing));
    return top + height + 80;
}

// ---- The weights of the scale and the derived ones ----

using FigureOf = std::optional<double> (*)(const LoadWeights&);

constexpr int boxHeight = 1480;
constexpr int middle = 5240;

void AddReadings(Objects& objects, int top) {
    constexpr int rowHeight = 340;
    objects.push_back(FilledBox({0, top, middle, boxHeight}, PaleGreen));
    int rowTop = top + 60;
    const auto add = [&](const char* caption, FigureOf figureOf) {
        const auto text = [figureOf](const ReportContext& context) {
            const auto figure = figureOf(WeightsIn(context));
            return figure ? Kilograms(*figure) : std::string();
        };
        const auto isMissing = [figureOf](const ReportContext& context) {
            return !figureOf(WeightsIn(context));
        };
        objects.push_back(Sized(Text({140, rowTop, 2600, rowHeight}, caption), 10));
        objects.push_back(
            Sized(Aligned(Formula({2700, rowTop, 1900, rowHeight}, caption, text), Right), 11));
        objects.push_back(Suppressed(
            Coloured(Text({4680, rowTop, 400, rowHeight}, "kg"), CaptionGrey), isMissing));
        rowTop += rowHeight;
    };
    add("Initial Gross Weight", [](const LoadWeights& all) { return all.initialGross; });
    add("Tare Weight", [](const LoadWeights& all) { return all.tare; });
    add("Gross Weight", [](const LoadWeights& all) { return all.gross; });
    add("Deduction", [](const LoadWeights& all) { return all.deduction; });
}

// ---- The net weight ----

std::string NetOf(const ReportContext& context) {
    return Kilograms(WeightsIn(context).net);
}

/// Large and bold if the truck has been weighed twice.
void AddResult(Objects& objects, int top) {
    constexpr int height = 480;
    constexpr int smallPoints = 10;
    const auto area = [](int left, int rowTop, int width) {
        return Area{middle + left, rowTop, width, height};
    };
    const auto add = [&](const ReportObject& object, int points) {
        objects.push_back(Suppressed(Sized(object, smallPoints), IsNoFirstWeighing));
        objects.push_back(Suppressed(Bold(Sized(object, points)), IsFirstWeighing));
    };
    objects.push_back(FilledBox({middle, top, PageWidth - middle, boxHeight}, HeadGreen));
    int rowTop = top + 200;
    add(Text(area(140, rowTop, 1900), "Net Weight"), 12);
    add(ShownAtOpening(Aligned(Formula(area(1900, rowTop, 2680), "Net", NetOf), Right)), 18);
    objects.push_back(Coloured(Text(area(4660, rowTop, 400), "kg"), CaptionGrey));
    rowTop += 600;
    add(Text(area(140, rowTop, 1900), "Mounds - Kgs"), 12);
    add(ShownAtOpening(Aligned(Parameter(area(1900, rowTop, 2680), SlipParameter::Mounds), Right)),
        14);
}

std::string ScaleDeductionNote(const ReportContext& context) {
    return "The deduction includes a scale deduction of " +
           Kilograms(WeightsIn(context).scaleDeduction) + " kg. The lines below are after it.";
}

int AddScaleDeduction(Objects& objects, int top) {
    constexpr int height = 280;
    const auto isNone = [](const ReportContext& context) {
        return WeightsIn(context).scaleDeduction == 0;
    };
    objects.push_back(Suppressed(
        Growing(Formula({0, top, PageWidth, height}, "ScaleDeductionNote", ScaleDeductionNote)),
        isNone));
    return top + height;
}

} // namespace

int AddWeights(Objects& objects, int top) {
    const int boxTop = AddNotice(objects, top);
    AddReadings(objects, boxTop);
    AddResult(objects, boxTop);
    constexpr int gap = 80;
    return AddScaleDeduction(objects, boxTop + boxHeight + gap);
}

} // namespace Quillane::SlipParts
