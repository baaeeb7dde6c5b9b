#pragma once

#include <functional>
#include <string>

class QWidget;

/// What the office says and asks in boxes over one of its windows.
namespace Quillane::Office {

/// A piece of news that needs no decision.
void Tell(QWidget* over, const std::string& text);
/// A refusal or a failure: nothing, or not all, has been done.
void Warn(QWidget* over, const std::string& text);
/// Asks for a decision. `yes` is what the button says that agrees, such as "&Delete"; the other one
/// is "Cancel", which Esc presses too, and the one that Enter presses.
bool Ask(QWidget* over, const std::string& text, const std::string& yes);

/// Runs what an action of a user does. A failure is shown in a box, and gives false; no exception
/// travels through the toolkit's code.
bool Guarded(QWidget* over, const std::function<void()>& act);

} // namespace Quillane::Office
