#pragma once

#include "platform/report/Report.h"
#include "slip/SlipDesign.h"
#include "slip/SlipFigures.h"
#include "slip/SlipObjects.h"

#include <array>

/// The sections of the slip, one file for each theme.
namespace Quillane::SlipParts {

inline constexpr int PageWidth = 10466; ///< A4 between the margins

/// The left edges of the columns of the table, and the right edge of the last.
inline constexpr std::array<int, 9> ColumnEdges{0,    480,  2860, 5240,     6066,
                                                7166, 8316, 9366, PageWidth};
enum TableColumn { Number, Class, Type, Bags, PerBag, Gross, Deduction, Net };

inline SlipObjects::Area CellArea(TableColumn column, int top, int height) {
    return {ColumnEdges[column], top, ColumnEdges[column + 1] - ColumnEdges[column], height};
}

/// Computed once for each layout of a slip.
struct Figures {
    SlipLines lines;
    LoadWeights weights;
};
const Figures& FiguresOf(const ReportContext& context);

using Objects = std::vector<ReportObject>;

/// The company and the details of the arrival. Each part of the heading returns the height at which
/// the next one begins.
int AddParticulars(Objects& objects);
/// The weights of the load.
int AddWeights(Objects& objects, int top);
/// The heading of the following pages. It has no height on the first page.
int AddFurtherHeading(Objects& objects);

/// The captions of the table, and one row of it.
ReportSection TableHead();
ReportSection TableRow();
/// The totals of the table, and the signatures.
ReportSection TableEnd();

} // namespace Quillane::SlipParts
