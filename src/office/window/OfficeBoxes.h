#pragma once

#include <functional>
#include <string>

class QWidget;

/// Messages and questions in boxes over a window of the office.
namespace Quillane::Office {

/// Information that requires no decision.
void Inform(QWidget* over, const std::string& text);
/// A refusal or a failure: nothing, or not everything, has been done.
void Warn(QWidget* over, const std::string& text);
/// Asks for a decision. `yes` is the caption of the button that agrees, such as "&Delete". The
/// other button is "Cancel", the default one, which Esc presses too.
bool Ask(QWidget* over, const std::string& text, const std::string& yes);

/// Runs an action of the user. Shows a failure in a box and returns false; no exception passes
/// through Qt code.
bool Guarded(QWidget* over, const std::function<void()>& act);

} // namespace Quillane::Office
