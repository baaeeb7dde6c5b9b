#include "platform/forms/core/Text.h"
#include "platform/report/FieldText.h"
#include "platform/report/ReportLayout.h"

#include <algorithm>
#include <map>

namespace Quillane {

namespace {

/// The distances by which objects below certain heights move down (negative: up).
class Growth {
public:
    void Note(const ReportObject& object, double needed) {
        const double extra = needed - object.Height;
        const auto [entry, isNew] = extraBelow_.emplace(object.Top + object.Height, extra);
        if (!isNew)
            entry->second = std::max(entry->second, extra);
    }
    double At(double height) const {
        double sum = 0;
        for (auto entry = extraBelow_.begin(); entry != extraBelow_.end() && entry->first <= height;
             ++entry)
            sum += entry->second;
        return sum;
    }

private:
    std::map<double, double> extraBelow_; ///< by the bottom edge of the texts
};

bool ShowsText(const ReportObject& object) {
    return object.kind == ReportObjectKind::Field || object.kind == ReportObjectKind::Text;
}

std::shared_ptr<const TextLines> LinesOf(const ReportObject& object, const ReportContext& context) {
    const std::string text = ObjectText(object, context);
    return text.empty() ? nullptr : std::make_shared<const TextLines>(object, ToQt(text));
}

double HeightOf(const ReportObject& object, bool isSuppressed, const TextLines* lines) {
    if (isSuppressed)
        return 0;
    return lines ? lines->NeededHeight() : object.Height;
}

} // namespace

PlacedSection LayOutSection(const ReportSection& section, const ReportContext& context) {
    PlacedSection placed;
    Growth growth;
    placed.objects.reserve(section.Objects.size());
    for (const ReportObject& object : section.Objects) {
        const bool isSuppressed = object.Suppress && object.Suppress(context);
        const auto lines = isSuppressed ? nullptr : LinesOf(object, context);
        if (ShowsText(object))
            growth.Note(object, HeightOf(object, isSuppressed, lines.get()));
        if (!isSuppressed)
            placed.objects.push_back({&object, {}, lines});
    }
    for (PlacedObject& each : placed.objects) {
        const ReportObject& object = *each.object;
        const double top = object.Top + growth.At(object.Top);
        const double lower = object.Top + object.Height;
        each.bounds = QRectF(object.Left, top, object.Width, lower + growth.At(lower) - top);
    }
    placed.height = section.Height + growth.At(section.Height);
    return placed;
}

} // namespace Quillane
