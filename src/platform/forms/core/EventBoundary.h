#pragma once

#include <functional>

namespace Quillane {

/// Thrown by `Screen::DoEvents` when the screen was unloaded meanwhile: ends the procedure that let
/// the events run. No trap catches it, since it is no Failure.
struct ScreenGone {};

/// Runs an event procedure from Qt's side. A failure that no procedure trapped shows the runtime's
/// error box - critical, OK, titled with the program's title - and ends the process. No exception
/// travels through Qt code.
void RunEvent(const std::function<void()>& procedure);

/// Ends the process at once, without ceremony but for the last act, through the function that tests
/// may replace: that one then runs in place of both.
void EndProcess(int exitCode);
/// What is still done before the process ends. What it fails with is dropped.
void SetLastAct(std::function<void()> act);
void SetEndProcess(std::function<void(int)> end);

} // namespace Quillane
