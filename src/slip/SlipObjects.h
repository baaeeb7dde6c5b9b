#pragma once

#include "platform/report/Report.h"

/// Functions that create the objects of the slip.
namespace Quillane::SlipObjects {

/// Colours, 0xBBGGRR.
inline constexpr int DarkGreen = 0x2B4F1F;
inline constexpr int BandGreen = 0xD6EBDC;
inline constexpr int HeadGreen = 0xBFDDC8;
inline constexpr int PaleGreen = 0xF0F8F2;
inline constexpr int BorderGreen = 0x8FB59B; ///< black on paper
/// The border of boxes, also on paper.
inline constexpr int LineGreen = 0x4A6B3F;
inline constexpr int CaptionGrey = 0x505050;

struct Area {
    int left, top, width, height;
};

ReportObject At(ReportObjectKind kind, Area area);
ReportObject Text(Area area, std::string text);
ReportObject Column(Area area, std::string name);
ReportObject Parameter(Area area, int position);
ReportObject Formula(Area area, std::string name,
                     std::function<std::string(const ReportContext&)> formula);
/// A formula over the current row; empty without a row.
ReportObject RowFormula(Area area, std::string name,
                        std::function<std::string(const Recordset&)> formula);
ReportObject FilledBox(Area area, int fill);
/// A box without height or without width.
ReportObject Line(Area area);

ReportObject Sized(ReportObject object, int points);
ReportObject Bold(ReportObject object);
ReportObject Aligned(ReportObject object, ReportAlignment alignment);
ReportObject Growing(ReportObject object);
/// The text that is visible when the preview opens.
ReportObject ShownAtOpening(ReportObject object);
ReportObject Coloured(ReportObject object, int textColour);
ReportObject Suppressed(ReportObject object, std::function<bool(const ReportContext&)> condition);
/// A cell of a table: with a border, and a fill unless it is -1.
ReportObject Cell(ReportObject object, int fill = -1);

} // namespace Quillane::SlipObjects
