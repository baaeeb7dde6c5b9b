#include "platform/forms/core/EventBoundary.h"

#include "platform/forms/TrialScreen.h"
#include "platform/runtime/Failure.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>

namespace Quillane::Testing {
namespace {

TEST(EventBoundary, ShowsTheRuntimesBoxAndEndsTheProcessOnAnUntrappedFailure) {
    ProcessEnd end;
    BoxAnswers answers;
    answers.Expect(Critical("The port is gone", "Quillane"));
    RunEvent([] { throw Failure(8018, "The port is gone", FailureSource::SerialLine); });
    EXPECT_EQ(std::vector<int>{1}, end.Codes());
}

TEST(EventBoundary, AnyOtherExceptionEndsTheProcessToo) {
    ProcessEnd end;
    BoxAnswers answers;
    answers.Expect(Critical("out of memory", "Quillane"));
    RunEvent([] { throw std::length_error("out of memory"); });
    EXPECT_EQ(std::vector<int>{1}, end.Codes());
}

TEST(EventBoundaryDeathTest, EndsTheProcessAtOnceUnlessThatIsReplaced) {
    EXPECT_EXIT(
        {
            SetEndProcess({});
            EndProcess(3);
        },
        testing::ExitedWithCode(3), "");
}

TEST(EventBoundaryDeathTest, RunsTheLastActionOnceBeforeTheProcessEnds) {
    EXPECT_EXIT(
        {
            SetEndProcess({});
            SetLastAct([] {
                std::fputs("last act", stderr);
                EndProcess(3);
            });
            EndProcess(4);
        },
        testing::ExitedWithCode(3), "last act$");
}

TEST(EventBoundaryDeathTest, EndsTheProcessAlsoIfTheLastActionFails) {
    EXPECT_EXIT(
        {
            SetEndProcess({});
            SetLastAct([] { Fail(FailureNumber::Overflow); });
            EndProcess(3);
        },
        testing::ExitedWithCode(3), "");
}

TEST(EventBoundary, ReplacedEndRunsNoLastAction) {
    ProcessEnd end;
    bool ran = false;
    SetLastAct([&] { ran = true; });
    EndProcess(0);
    SetLastAct({});
    EXPECT_FALSE(ran);
    EXPECT_EQ(end.Codes(), std::vector<int>{0});
}

TEST(EventBoundary, ReportsNothingIfTheScreenWasUnloaded) {
    RunEvent([] { throw ScreenGone(); });
}

// Each of these fails inside a handler that Qt has called.
TEST(EventBoundary, CatchesTheFailureOfEveryHandler) {
    const auto fail = [] { Fail(FailureNumber::Overflow); };
    const std::function<void(TrialScreen&, ScreenDriver&)> ways[] = {
        [&](auto& screen, auto& driver) {
            screen.First.Change = fail;
            driver.Type("a");
        },
        [&](auto& screen, auto& driver) {
            screen.BtnGo.Click = fail;
            driver.Click(screen.BtnGo);
        },
        [&](auto& screen, auto& driver) {
            screen.First.Validate = fail;
            driver.Click(screen.Second);
        },
        [&](auto& screen, auto& driver) {
            screen.Second.GotFocus = fail;
            driver.Press(Qt::Key_Tab);
        },
        [&](auto& screen, auto& driver) {
            screen.OnKeyDown = [&](int&, int) { fail(); };
            driver.Press(Qt::Key_F1);
        },
        [&](auto& screen, auto& driver) {
            screen.OnKeyPress = [&](int&) { fail(); };
            driver.Type("a");
        },
        [&](auto& screen, auto& driver) {
            screen.OnKeyPress = [&](int&) { fail(); };
            driver.Commit("a");
        },
        [&](auto& screen, auto&) {
            screen.OnUnload = [&](bool&) { fail(); };
            screen.close();
            screen.OnUnload = {};
        },
    };
    for (const auto& way : ways) {
        TrialScreen screen;
        screen.Show();
        ScreenDriver driver(screen);
        ProcessEnd end;
        BoxAnswers answers;
        answers.Expect(Critical("Overflow", "Quillane"));
        EXPECT_NO_THROW(way(screen, driver));
        EXPECT_EQ(std::vector<int>{1}, end.Codes());
    }
}

TEST(EventBoundary, FailureReachesTheCodeThatSetAProperty) {
    TrialScreen screen;
    screen.First.Change = [] { Fail(FailureNumber::Overflow); };
    screen.First.LostFocus = [] { Fail(FailureNumber::TypeMismatch); };
    EXPECT_THROW(screen.First.SetText("a"), Failure);
    screen.Show();
    EXPECT_THROW(screen.Second.SetFocus(), Failure);
    EXPECT_THROW(screen.First.SetEnabled(false), Failure);
}

} // namespace
} // namespace Quillane::Testing
