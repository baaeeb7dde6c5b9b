#pragma once

class QKeyEvent;

namespace Quillane {

/// Virtual key codes as screens get them in `Form_KeyDown`. The code of a letter or digit is its
/// capital character: 'S', '1'.
namespace Key {
inline constexpr int Back = 8;
inline constexpr int Tab = 9;
inline constexpr int Return = 13;
inline constexpr int Shift = 16;
inline constexpr int Control = 17;
inline constexpr int Alt = 18;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int F1 = 112;
inline constexpr int F2 = 113;
inline constexpr int F4 = 115;
inline constexpr int F9 = 120;
inline constexpr int F12 = 123;
} // namespace Key

/// Shift state: the sum of these.
namespace ShiftState {
inline constexpr int None = 0;
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
} // namespace ShiftState

/// The virtual key code of a key event. Backtab is Tab (with Shift), keypad Enter is Enter; 255 for
/// a key without a code.
int KeyCodeOf(const QKeyEvent& event);
int ShiftStateOf(const QKeyEvent& event);

} // namespace Quillane
