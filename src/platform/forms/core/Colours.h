#pragma once

#include <cstdint>

class QColor;

/// The colours of the screens. Those of the slip are in slip/SlipObjects.h.
namespace Quillane {

/// A 24-bit colour with blue in the high byte: 0xBBGGRR.
using Colour = std::uint32_t;

inline constexpr Colour Black = 0x000000;
inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour Red = 0x0000FF;
inline constexpr Colour DarkRed = 0x0000C0;
inline constexpr Colour Yellow = 0x00FFFF;
inline constexpr Colour ClosedGrey = 0xE0E0E0;  ///< of a box that cannot be changed
inline constexpr Colour VisitedTint = 0xC0FFFF; ///< of a box that has had the focus
inline constexpr Colour ActiveRowGrey = 0xCFCFCF;

inline constexpr Colour DialogGreen = 0x5E6B2F; ///< head of a dialog, its leading button
inline constexpr Colour HeadingGreen = 0x444C24;
inline constexpr Colour QuietGrey = 0x635F55; ///< a line of less importance
inline constexpr Colour MessageRed = 0x1C1C9C;
inline constexpr Colour ClosedText = 0x404040; ///< text of a box that is disabled

QColor ToQt(Colour colour);

} // namespace Quillane
