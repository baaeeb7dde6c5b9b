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

/// Lays a section out at the current row: an object that can grow and has to draws out what stands
/// beside it (whatever ends where it ends, or lower) and moves down what begins below it.
PlacedSection LayOutSection(const ReportSection& section, const Report& report,
                            const Recordset* rows);

/// Width and height of the sheet in twips, by the report's orientation.
QSizeF SheetOf(const Report& report);

/// Lays the report out over its pages; there is always one. The report header comes first on the
/// first page, page headers and footers on each, with the values of the page's first row. A detail
/// row is never broken. The report footer is kept whole, with the last row above it.
std::vector<ReportPage> LayOutReport(const Report& report);

} // namespace Quillane
