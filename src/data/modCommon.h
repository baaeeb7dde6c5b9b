#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Quillane {

class Screen;
class VisualControl;

/// Shows the exception that is being handled in a critical box with OK. The text is the description
/// of the failure, the title its source. Requires: the caller is inside a catch clause.
void ShowError();

/// The key filter of number boxes. Digits and Backspace (8) are accepted. A point (46) is accepted
/// if `allowPoint` is true and the text of the control has none yet. Any other key is set to 0.
void AllowNumericKey(int& key, const VisualControl& control, bool allowPoint);

/// True if `AllowNumericKey` without a point accepts every character of a text. Backspace is not
/// accepted here: it is a key, not a character.
bool AllowNumericText(std::string_view text, const VisualControl& control);

/// The got-focus handler of text boxes. If the screen is visible and its active control is a
/// visible, enabled text box, selects all its text, sets its background to 0xC0FFFF and gives it
/// the focus.
void MarkActiveText(Screen& screen);

/// Converts a text to capitals, in every script that has them.
std::string Capitals(std::string_view text);

/// Returns the name of a company by its number, in capitals. Asks the operator for it if
/// `AskCompanyName` in `Station.ini` is -1.
std::string GetCompanyName(std::int16_t companyNo);

} // namespace Quillane
