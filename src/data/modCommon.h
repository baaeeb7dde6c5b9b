#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillane {

class Screen;
class VisualControl;

/// Reports the failure in flight, from inside a catch clause: a critical box with OK, its text the
/// failure's description and its title the failure's source. Changes no state.
void ShowError();

/// The key filter of number boxes. A digit or Backspace (8) passes; a point (46) passes only where
/// `allowPoint` is true and the control's text holds none yet; any other key becomes 0.
void AllowNumericKey(int& key, const VisualControl& control, bool allowPoint);

/// Whether that filter lets each character of a text through, without a point. Backspace is a key
/// and no character.
bool AllowNumericText(std::string_view text, const VisualControl& control);

/// The got-focus routine of text boxes: on a visible screen, selects the whole text of a visible
/// and enabled text box, tints it 0xC0FFFF and gives it the focus.
void MarkActiveText(Screen& screen);

/// Capitals of any script that has them.
std::string Capitals(std::string_view text);

/// The company's name by its number, in capitals; asks the operator where the station says so.
std::string GetCompanyName(std::int16_t companyNo);

} // namespace Quillane
