#include "platform/forms/dialogs/WaitingScreen.h"

#include "platform/runtime/Failure.h"
#include "support/FailureOf.h"
#include "support/ScreenDriver.h"

#include <QLabel>
#include <QProgressBar>

#include <gtest/gtest.h>

#include <semaphore>
#include <thread>

namespace Quillane {

using Testing::ScreenDriver;
using Testing::VisitModal;
using Testing::WaitFor;

namespace {

constexpr const char* Title = "Set up the station";

bool Shows(const Screen& screen, const QString& text) {
    for (const QLabel* label : screen.findChildren<QLabel*>())
        if (label->text() == text)
            return true;
    return false;
}

} // namespace

TEST(LongWork, RunsOnAnotherThread) {
    const auto here = std::this_thread::get_id();
    std::thread::id there;
    EXPECT_TRUE(RunLongWork(Title, [&](LongWork&) { there = std::this_thread::get_id(); }));
    EXPECT_NE(there, std::thread::id());
    EXPECT_NE(there, here);
}

TEST(LongWork, ShowsItsProgressAndEnds) {
    std::binary_semaphore seen(0);
    const VisitModal visit([&](Screen& screen) {
        EXPECT_EQ(screen.Name(), "WaitingScreen");
        const auto* bar = screen.findChild<QProgressBar*>();
        EXPECT_TRUE(WaitFor([&] { return bar->value() == 3; }));
        EXPECT_EQ(bar->maximum(), 8);
        EXPECT_TRUE(Shows(screen, "Making tables"));
        seen.release();
        EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }));
    });
    EXPECT_TRUE(RunLongWork(Title, [&](LongWork& work) {
        work.Begin("Making tables", 8);
        EXPECT_TRUE(work.Advance(3));
        seen.acquire();
    }));
}

TEST(LongWork, EscAndCloseBoxCancelItButKeysTypedAheadDoNot) {
    for (const bool byKey : {true, false}) {
        std::binary_semaphore seen(0);
        const VisitModal visit([&](Screen& screen) {
            ScreenDriver driver(screen);
            driver.Press(Qt::Key_Return).Press(Qt::Key_Space).Press(Qt::Key_Return);
            EXPECT_TRUE(dynamic_cast<WaitingScreen&>(screen).BtnCancel.Enabled());
            if (byKey)
                driver.Press(Qt::Key_Escape);
            else
                screen.close();
            EXPECT_TRUE(screen.IsLoaded()) << "it waits for the work";
            EXPECT_TRUE(Shows(screen, "Cancelling. Waiting for the answer of the server."));
            seen.release();
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }));
        });
        bool goesOn = true;
        EXPECT_FALSE(RunLongWork(Title, [&](LongWork& work) {
            seen.acquire();
            goesOn = work.Advance(1);
        }));
        EXPECT_FALSE(goesOn);
    }
}

TEST(LongWork, FailureReachesTheCaller) {
    const auto fail = [](LongWork&) { throw Failure(FailureNumber::Database, "no disk", "D"); };
    EXPECT_EQ(FailureOf([&] { RunLongWork(Title, fail); }).Description(), "no disk");
    std::binary_semaphore seen(0);
    const VisitModal visit([&](Screen& screen) {
        seen.release();
        EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }));
    });
    EXPECT_EQ(FailureOf([&] {
                  RunLongWork(Title, [&](LongWork& work) {
                      seen.acquire();
                      fail(work);
                  });
              }).Description(),
              "no disk");
}

} // namespace Quillane
