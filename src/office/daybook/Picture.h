#pragma once

#include "office/daybook/Sums.h"
#include "platform/report/Report.h"

#include <vector>

/// Pictures of the net weights of a day book, for who would rather look than read: objects of a
/// report, so that the screen, the printer and a PDF show the same.
namespace Quillane::Office {

/// In twips.
inline constexpr int PictureWidth = 15'398; ///< of A4 on its side, between the margins
inline constexpr int PictureHeight = 8'000;

/// Bars upright for the days, or where they are more than a year's for the months; below them bars
/// for the commodities with the most net weight, the others in one. From the corner (0, top).
std::vector<ReportObject> Picture(const DayBookSums& sums, const DayBookNames& names, int top);

/// The picture alone, on a sheet of its size, as a window shows it.
class PictureReport : public Report {
public:
    PictureReport(const DayBookSums& sums, const DayBookNames& names);
};

} // namespace Quillane::Office
