#pragma once

#include "office/daybook/ReportRows.h"
#include "platform/report/Report.h"

namespace Quillane::Office {

/// A detail section with the rows of one printed table; of a row of another table it shows nothing
/// and takes no height.
ReportSection TableSection(PrintedTable table);

/// The captions of whichever table goes on at the top of a page, for a page header.
std::vector<ReportObject> ContinuedCaptions(int top);
inline constexpr int CaptionHeight = 300;

} // namespace Quillane::Office
