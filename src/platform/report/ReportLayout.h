#pragma once

#include "platform/report/Report.h"
#include "platform/report/TextLines.h"

#include <QRectF>

#include <memory>
#include <vector>

namespace Quillane {

/// An object at its position on a page, in twips from the corner of the paper.
struct PlacedObject {
    const ReportObject* object = nullptr;
    QRectF bounds;
    std::shared_ptr<const TextLines> text; ///< null without a text
};

struct ReportPage {
    std::vector<PlacedObject> objects;
};

/// A section for one row, in twips from the corner of the section.
struct PlacedSection {
    std::vector<PlacedObject> objects;
    double height = 0;
};

/// Lays out a section. If a text needs more height than its object has, the objects next to it
/// (with the same or a lower bottom edge) grow too, and those below it move down. If all texts with
/// the same bottom edge are suppressed, the objects below them move up.
PlacedSection LayOutSection(const ReportSection& section, const ReportContext& context);

/// Width and height of the paper in twips, in the orientation of the report.
QSizeF SheetOf(const Report& report);

/// Lays out all pages of the report; there is always at least one. The report header is at the top
/// of the first page; page headers and footers are on every page, with the values of the first row
/// of the page. A detail row is never split. The report footer is kept together with the last row.
std::vector<ReportPage> LayOutReport(const Report& report);

} // namespace Quillane
