#include "platform/forms/core/Timer.h"

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"
#include "support/ScreenDriver.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane::Testing {
namespace {

using std::chrono::milliseconds;

class TimerTest : public testing::Test {
protected:
    TrialScreen screen;
    Timer timer{screen, "Timer", 10};
    int ticks = 0;

    void CountTicks() {
        timer.Tick = [this] { ++ticks; };
    }
    bool Ticks(int count) {
        return WaitFor([&] { return ticks >= count; });
    }
    // True if no tick occurs for longer than the interval.
    bool IsSilent() {
        const int before = ticks;
        return !WaitFor([&] { return ticks != before; }, milliseconds(50));
    }
};

TEST_F(TimerTest, TicksWhileItsScreenIsLoadedAndNeverBeforeOrAfter) {
    CountTicks();
    EXPECT_TRUE(IsSilent());
    screen.Load();
    EXPECT_TRUE(Ticks(3));
    screen.Unload();
    EXPECT_TRUE(IsSilent());
    screen.Load();
    EXPECT_TRUE(Ticks(ticks + 1));
}

TEST_F(TimerTest, TicksWhileItIsEnabled) {
    CountTicks();
    timer.SetEnabled(false);
    screen.Load();
    EXPECT_TRUE(IsSilent());
    timer.SetEnabled(true);
    EXPECT_TRUE(Ticks(1));
}

TEST_F(TimerTest, NeverTicksWithAnIntervalOfZero) {
    CountTicks();
    timer.SetInterval(0);
    screen.Load();
    EXPECT_TRUE(IsSilent());
    timer.SetInterval(10);
    EXPECT_TRUE(Ticks(1));
}

TEST_F(TimerTest, TicksBelowAModalScreen) {
    CountTicks();
    screen.Show();
    TrialScreen above("Above");
    RunModal(above, [&](Screen& shown) {
        EXPECT_TRUE(Ticks(ticks + 2));
        shown.Unload();
    });
}

TEST_F(TimerTest, DoesNotTickWhileABoxIsShown) {
    CountTicks();
    screen.Show();
    BoxAnswers answers;
    answers.Expect(Question("Wait?"), BoxAnswer::Yes, [&] { EXPECT_TRUE(IsSilent()); });
    MsgBox(Question("Wait?"));
    EXPECT_TRUE(Ticks(ticks + 1));
}

TEST_F(TimerTest, RestartsItsIntervalAfterABox) {
    QElapsedTimer sinceBox;
    timer.SetInterval(100);
    timer.Tick = [&] { ++ticks; };
    screen.Show();
    BoxAnswers answers;
    answers.Expect(Question("Wait?"), BoxAnswer::Yes, [&] {
        WaitFor([] { return false; }, milliseconds(80));
        sinceBox.start();
    });
    MsgBox(Question("Wait?"));
    EXPECT_TRUE(Ticks(1));
    EXPECT_GE(sinceBox.elapsed(), 95);
}

TEST_F(TimerTest, ShowsOneBoxAtATimeIfItsTickRestartsIt) {
    int up = 0;
    int most = 0;
    BoxAnswers answers;
    for (int i = 0; i < 2; ++i) {
        answers.Expect(Alert("Port closed"), BoxAnswer::Ok, [&] {
            most = std::max(most, ++up);
            WaitFor([] { return false; }, milliseconds(60));
            --up;
        });
    }
    timer.Tick = [&] {
        ++ticks;
        timer.SetEnabled(false);
        timer.SetInterval(5);
        timer.SetEnabled(true);
        MsgBox(Alert("Port closed"));
        if (ticks == 2)
            timer.SetEnabled(false);
    };
    screen.Show();
    EXPECT_TRUE(WaitFor([&] { return answers.Remaining() == 0; }));
    EXPECT_EQ(1, most);
    EXPECT_TRUE(IsSilent());
}

TEST_F(TimerTest, NeverReentersItsOwnTickWhileEventsRun) {
    int inside = 0;
    int most = 0;
    timer.Tick = [&] {
        ++ticks;
        most = std::max(most, ++inside);
        timer.SetInterval(1);
        WaitFor([] { return false; }, milliseconds(20));
        --inside;
    };
    screen.Show();
    EXPECT_TRUE(Ticks(3));
    EXPECT_EQ(1, most);
}

TEST_F(TimerTest, TickEndsIfItsScreenIsClosedMeanwhile) {
    bool cameBack = false;
    timer.Tick = [&] {
        ++ticks;
        QMetaObject::invokeMethod(
            &screen, [&] { screen.Unload(); }, Qt::QueuedConnection);
        screen.DoEvents();
        cameBack = true;
    };
    screen.Show();
    EXPECT_TRUE(Ticks(1));
    EXPECT_FALSE(screen.IsLoaded());
    EXPECT_FALSE(cameBack);
}

TEST_F(TimerTest, UntrappedFailureEndsTheProcess) {
    ProcessEnd end;
    BoxAnswers answers;
    answers.Expect(Critical("Type mismatch", "Quillane"));
    timer.Tick = [&] {
        timer.SetEnabled(false);
        Fail(FailureNumber::TypeMismatch);
    };
    screen.Load();
    EXPECT_TRUE(WaitFor([&] { return !end.Codes().empty(); }));
    EXPECT_EQ(std::vector<int>{1}, end.Codes());
}

} // namespace
} // namespace Quillane::Testing
