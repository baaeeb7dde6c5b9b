#include "platform/forms/core/Text.h"
#include "platform/report/FieldText.h"
#include "platform/report/ReportLayout.h"

#include <algorithm>
#include <map>

namespace Quillane {

namespace {

/// How far things move down below given heights of the section.
class Growth {
public:
    void Note(const ReportObject& object, double needed) {
        if (needed > object.Height) {
            double& extra = extraBelow_[object.Top + object.Height];
            extra = std::max(extra, needed - object.Height);
        }
    }
    double At(double height) const {
        double sum = 0;
        for (auto entry = extraBelow_.begin(); entry != extraBelow_.end() && entry->first <= height;
             ++entry)
            sum += entry->second;
        return sum;
    }

private:
    std::map<double, double> extraBelow_; ///< by the lower edge of what grew
};

std::shared_ptr<const TextLines> LinesOf(const ReportObject& object, const Report& report,
                                         const Recordset* rows) {
    const std::string text = ObjectText(object, report, rows);
    return text.empty() ? nullptr : std::make_shared<const TextLines>(object, ToQt(text));
}

} // namespace

PlacedSection LayOutSection(const ReportSection& section, const Report& report,
                            const Recordset* rows) {
    PlacedSection placed;
    Growth growth;
    placed.objects.reserve(section.Objects.size());
    for (const ReportObject& object : section.Objects) {
        placed.objects.push_back({&object, {}, LinesOf(object, report, rows)});
        if (const auto& lines = placed.objects.back().text)
            growth.Note(object, lines->NeededHeight());
    }
    for (PlacedObject& each : placed.objects) {
        const ReportObject& object = *each.object;
        const double top = object.Top + growth.At(object.Top);
        const double lower = object.Top + object.Height;
        each.place = QRectF(object.Left, top, object.Width, lower + growth.At(lower) - top);
    }
    placed.height = section.Height + growth.At(section.Height);
    return placed;
}

} // namespace Quillane
