#pragma once

#include "platform/report/Report.h"

/// Functions that make the objects of the slip's design.
namespace Quillane::SlipObjects {

/// Colours, 0xBBGGRR.
inline constexpr int DarkGreen = 0x2B4F1F;
inline constexpr int BandGreen = 0xD6EBDC;
inline constexpr int HeadGreen = 0xBFDDC8;
inline constexpr int PaleGreen = 0xF0F8F2;
inline constexpr int BorderGreen = 0x8FB59B; ///< goes black on paper
/// Of boxes, which keep it on paper.
inline constexpr int LineGreen = 0x4A6B3F;
inline constexpr int CaptionGrey = 0x505050;

struct Place {
    int left, top, width, height;
};

ReportObject At(ReportObjectKind kind, Place place);
ReportObject Text(Place place, std::string text);
ReportObject Column(Place place, std::string name);
ReportObject Parameter(Place place, int position);
ReportObject Formula(Place place, std::string name,
                     std::function<std::string(const ReportContext&)> formula);
/// Over the data at its current row; empty without one.
ReportObject RowFormula(Place place, std::string name,
                        std::function<std::string(const Recordset&)> formula);
ReportObject Box(Place place, int fill);
/// A box without height or without width.
ReportObject Line(Place place);

ReportObject Sized(ReportObject object, int points);
ReportObject Bold(ReportObject object);
ReportObject Aligned(ReportObject object, ReportAlignment alignment);
ReportObject Growing(ReportObject object);
/// In view when the preview opens.
ReportObject ShownAtOpening(ReportObject object);
ReportObject Coloured(ReportObject object, int textColour);
ReportObject Suppressed(ReportObject object, std::function<bool(const ReportContext&)> condition);
/// Of a table: with a border, and a fill unless it is -1.
ReportObject Cell(ReportObject object, int fill = -1);

} // namespace Quillane::SlipObjects
