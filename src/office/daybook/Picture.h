#pragma once

#include "office/daybook/Sums.h"
#include "platform/report/Report.h"

#include <vector>

/// Bar charts of the net weights of a day book. They consist of report objects, so that the screen,
/// the printer and a PDF show the same.
namespace Quillane::Office {

/// In twips.
inline constexpr int PictureWidth = 15'398; ///< A4 landscape, between the margins
inline constexpr int PictureHeight = 8'000;

/// Creates the charts below the line `top`: vertical bars for the days, or for the months if there
/// are more days than in a year; below them horizontal bars for the largest commodities and one for
/// all others.
std::vector<ReportObject> Picture(const DayBookSums& sums, const DayBookNames& names, int top);

/// A report with only the picture, on a page of its size, for the window.
class PictureReport : public Report {
public:
    PictureReport(const DayBookSums& sums, const DayBookNames& names);
};

} // namespace Quillane::Office
