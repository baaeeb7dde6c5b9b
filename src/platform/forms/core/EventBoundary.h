#pragma once

#include <functional>

namespace Quillane {

/// Thrown by `Screen::DoEvents` if the events have unloaded the screen; ends the procedure that
/// called it. It is not a Failure, so no trap catches it.
struct ScreenGone {};

/// Runs an event procedure for Qt. A failure that no procedure traps shows the runtime's error box
/// (critical, OK, titled with the program's title) and ends the process. No exception passes
/// through Qt code.
void RunEvent(const std::function<void()>& procedure);

/// Runs the last action and ends the process immediately, without destructors. Tests may replace
/// both by a function.
void EndProcess(int exitCode);
/// Sets what is done before the process ends. A failure of it is ignored.
void SetLastAct(std::function<void()> act);
void SetEndProcess(std::function<void(int)> end);

} // namespace Quillane
