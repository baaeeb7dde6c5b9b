#pragma once

#include "platform/report/Report.h"

#include <string>

namespace Quillane {

/// Returns the text that a field or text object shows. Columns are empty without a current row and
/// for Null. `PageNofM` is empty, because the number of pages is not known yet.
std::string ObjectText(const ReportObject& object, const ReportContext& context);

} // namespace Quillane
