#pragma once

#include "platform/report/Report.h"

#include <string>

namespace Quillane {

/// The text that a field or text object shows at the current row of `rows`. Without a current row
/// (no data, or none left of it) columns and formulas are empty. Null is empty. The page number is
/// not known here and gives the empty text.
std::string ObjectText(const ReportObject& object, const Report& report, const Recordset* rows);

} // namespace Quillane
