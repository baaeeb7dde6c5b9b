#pragma once

#include "platform/report/Report.h"

#include <string>

namespace Quillane {

/// The text that a field or text object shows. Without a current row (no data, or none left of it)
/// columns are empty. Null is empty. The count of pages is not known here: `PageNofM` is empty.
std::string ObjectText(const ReportObject& object, const ReportContext& context);

} // namespace Quillane
