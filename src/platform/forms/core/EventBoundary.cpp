#include "platform/forms/core/EventBoundary.h"

#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

namespace Quillane {

namespace {

std::function<void(int)> replacedEnd;
std::function<void()> lastAct;

void RunLastAct() {
    try {
        if (const auto act = std::exchange(lastAct, {}))
            act();
    } catch (const std::exception&) {
        // There is no screen left that could report it.
    }
}

// No procedure trapped the failure.
void EndOnFailure(const std::string& description) {
    MsgBox({.text = description, .title = ProgramTitle(), .icon = BoxIcon::Critical});
    EndProcess(1);
}

} // namespace

void RunEvent(const std::function<void()>& procedure) {
    try {
        procedure();
    } catch (const ScreenGone&) {
        // The screen was unloaded while the procedure let events run: nothing to report.
    } catch (const Failure& failure) {
        EndOnFailure(failure.Description());
    } catch (const std::exception& failure) {
        EndOnFailure(failure.what());
    }
}

void EndProcess(int exitCode) {
    if (replacedEnd) {
        replacedEnd(exitCode);
        return;
    }
    RunLastAct();
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

void SetLastAct(std::function<void()> act) {
    lastAct = std::move(act);
}

void SetEndProcess(std::function<void(int)> end) {
    replacedEnd = std::move(end);
}

} // namespace Quillane
