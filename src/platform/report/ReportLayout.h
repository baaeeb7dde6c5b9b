#pragma once

#include "platform/report/Report.h"
#include "platform/report/TextLines.h"

#include <QRectF>

#include <memory>
#include <vector>

namespace Quillane {

/// One object in its place on a page, in twips from the corner of the paper.
struct PlacedObject {
    const ReportObject* object = nullptr;
    QRectF place;
    std::shared_ptr<const TextLines> text; ///< null where there is none
};

struct ReportPage {
    std::vector<PlacedObject> objects;
};

/// A section at one row, in twips from its own corner.
struct PlacedSection {
    std::vector<PlacedObject> objects;
    double height = 0;
};

/// Lays a section out. A text that needs more height than its object has makes the objects next to
/// it (those that end where it ends, or lower) as high, and moves down those that begin below it.
/// Where every text that ends at one height is suppressed, the objects below move up.
PlacedSection LayOutSection(const ReportSection& section, const ReportContext& context);

/// Width and height of the sheet in twips, by the report's orientation.
QSizeF SheetOf(const Report& report);

/// Lays the report out over its pages; there is always one. The report header comes first on the
/// first page, page headers and footers on each, with the values of the page's first row. A detail
/// row is never broken. The report footer is kept whole, with the last row above it.
std::vector<ReportPage> LayOutReport(const Report& report);

} // namespace Quillane
