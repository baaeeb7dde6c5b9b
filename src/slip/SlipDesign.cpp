#include "slip/SlipDesign.h"

#include "slip/SlipParts.h"

namespace Quillane {

namespace SlipParts {

using namespace SlipObjects;

/// On every page, so that the sheets of a long load find together again.
ReportSection Foot() {
    constexpr int half = PageWidth / 2;
    const auto arrival = [](const Recordset& rows) {
        return "Arrival No. " + rows.Fields("ArrivalId").TextOrEmpty();
    };
    ReportObject pages = At(ReportObjectKind::Field, {half, 120, half, 240});
    pages.field.source = ReportField::Source::PageNofM;
    return {"PageFooterSection1",
            360,
            {Line({0, 100, PageWidth, 0}),
             Coloured(Sized(Formula({0, 120, half, 240}, "Arrival", arrival), 8), CaptionGrey),
             Coloured(Sized(Aligned(pages, ReportAlignment::Right), 8), CaptionGrey)},
            ReportSectionKind::PageFooter};
}

} // namespace SlipParts

std::vector<ReportSection> SlipSections() {
    return {SlipParts::Heading(), SlipParts::TableHead(), SlipParts::TableRow(),
            SlipParts::Weights(), SlipParts::Foot()};
}

std::string SlipFileName(const Report& slip) {
    const auto& rows = slip.Database.Data();
    if (!rows || rows->State() != adStateOpen || rows->RecordCount() == 0)
        return "Slip";
    Recordset view = rows->Clone();
    view.MoveFirst();
    return "Slip " + view.Fields("ArrivalId").TextOrEmpty();
}

} // namespace Quillane
