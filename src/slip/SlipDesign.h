#pragma once

#include "platform/report/Report.h"

#include <vector>

namespace Quillane {

/// Parameters of a slip, by position.
namespace SlipParameter {
inline constexpr int CompanyTitle = 1;
inline constexpr int CompanyAddress = 2;
inline constexpr int CompanyPhone = 3;
inline constexpr int CompanyEmail = 4;
inline constexpr int Mounds = 5;
inline constexpr int InitialGrossWeight = 6;
inline constexpr int NetWeight = 7;
inline constexpr int Count = 7;
} // namespace SlipParameter

/// Creates the five sections of the slip, from the top of the page. Fills and borders have colours
/// for the screen; the preview removes them before printing.
std::vector<ReportSection> SlipSections();

/// Returns "Slip" and the number of the arrival, if the data has a row.
std::string SlipFileName(const Report& slip);

} // namespace Quillane
