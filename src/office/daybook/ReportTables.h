#pragma once

#include "office/daybook/ReportRows.h"
#include "platform/report/Report.h"

namespace Quillane::Office {

/// Creates the detail section of one printed table. For rows of other tables it is empty and has no
/// height.
ReportSection TableSection(PrintedTable table);

/// Creates the page header: the captions of the table that continues on the page.
std::vector<ReportObject> ContinuedCaptions(int top);
inline constexpr int CaptionHeight = 300;

} // namespace Quillane::Office
