#include "platform/comm/Bursts.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using namespace std::chrono_literals;

/// A line with a pause length of 50 ms that returns two bursts together; the test sets the time.
class BurstsTest : public testing::Test {
protected:
    void Pass(Bursts::Duration time) { now_ += time; }
    void Receive(std::string_view bytes) { bursts.Receive(bytes, now_); }
    void FindNothing() { bursts.FindNothing(now_); }
    /// Bytes followed by a detected pause.
    void ReceiveBurst(std::string_view bytes) {
        Receive(bytes);
        Pass(50ms);
        FindNothing();
    }
    void StartWithASilence() { ReceiveBurst(""); }

private:
    Bursts::Time now_{};

protected:
    Bursts bursts{50ms, 2, now_};
};

TEST_F(BurstsTest, AreReturnedTwoTogether) {
    StartWithASilence();
    ReceiveBurst("one ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("two ");
    EXPECT_EQ(bursts.Take(), "one two ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("three ");
    EXPECT_EQ(bursts.Take(), "") << "each burst is returned once";
    ReceiveBurst("four ");
    ReceiveBurst("five");
    EXPECT_EQ(bursts.Take(), "three four five");
}

TEST_F(BurstsTest, DoNotIncludeAnUnfinishedBurst) {
    StartWithASilence();
    ReceiveBurst("one ");
    ReceiveBurst("two ");
    Receive("thr");
    EXPECT_EQ(bursts.Take(), "one two ");
    Receive("ee ");
    Pass(50ms);
    FindNothing();
    ReceiveBurst("four");
    EXPECT_EQ(bursts.Take(), "three four");
}

TEST_F(BurstsTest, EndOnlyWithAPauseOfFullLength) {
    StartWithASilence();
    ReceiveBurst("one ");
    Receive("tw");
    Pass(49ms);
    FindNothing();
    EXPECT_FALSE(bursts.IsSilent());
    EXPECT_EQ(bursts.Take(), "");
    Receive("o");
    Pass(50ms);
    FindNothing();
    EXPECT_TRUE(bursts.IsSilent());
    EXPECT_EQ(bursts.Take(), "one two");
}

// The program was busy: the bytes may have arrived at any time.
TEST_F(BurstsTest, AreNotEndedByTimeWithoutARead) {
    StartWithASilence();
    ReceiveBurst("one ");
    Receive("012");
    Pass(400ms);
    Receive("540");
    Pass(400ms);
    Receive(" kg");
    EXPECT_EQ(bursts.Take(), "");
    Pass(50ms);
    FindNothing();
    EXPECT_EQ(bursts.Take(), "one 012540 kg");
}

TEST_F(BurstsTest, AreJoinedByAnUndetectedPause) {
    StartWithASilence();
    Receive("one ");
    Pass(400ms);
    ReceiveBurst("two ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("three");
    EXPECT_EQ(bursts.Take(), "one two three");
}

TEST_F(BurstsTest, BeginAfterTheFirstPause) {
    EXPECT_FALSE(bursts.IsSilent());
    Receive("540 kg ");
    Pass(20ms);
    ReceiveBurst("cut ");
    ReceiveBurst("one ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("two");
    EXPECT_EQ(bursts.Take(), "one two");
}

TEST_F(BurstsTest, AreNotCreatedByPausesOnly) {
    for (int look = 0; look < 5; ++look) {
        Pass(50ms);
        FindNothing();
    }
    EXPECT_TRUE(bursts.IsSilent());
    ReceiveBurst("one");
    EXPECT_EQ(bursts.Take(), "");
}

TEST_F(BurstsTest, KeepTheOldestOfAFullBuffer) {
    StartWithASilence();
    ReceiveBurst(std::string(500, 'a'));
    ReceiveBurst(std::string(500, 'b'));
    Receive(std::string(20, 'c'));
    Receive(std::string(20, 'c'));
    EXPECT_EQ(bursts.Take(), std::string(500, 'a') + std::string(500, 'b'));
    ReceiveBurst("the rest of the dropped one ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("one ");
    ReceiveBurst("two");
    EXPECT_EQ(bursts.Take(), "one two");
}

TEST_F(BurstsTest, DetectALineThatNeverPauses) {
    StartWithASilence();
    const auto sendFor = [&](Bursts::Duration time) {
        for (Bursts::Duration sent{}; sent < time; sent += 10ms) {
            Pass(10ms);
            Receive("12540 ");
        }
    };
    sendFor(4990ms);
    EXPECT_FALSE(bursts.NeverPauses());
    sendFor(100ms);
    EXPECT_TRUE(bursts.NeverPauses());
    EXPECT_EQ(bursts.Take(), "");
    Pass(50ms);
    FindNothing();
    EXPECT_FALSE(bursts.NeverPauses()) << "the line has paused";
    sendFor(4990ms);
    EXPECT_FALSE(bursts.NeverPauses());
}

TEST_F(BurstsTest, DoNotReportAnUnreadLineAsNeverPausing) {
    StartWithASilence();
    for (int look = 0; look < 200; ++look) {
        Pass(50ms);
        Receive("12540 ");
    }
    EXPECT_FALSE(bursts.NeverPauses()) << "a pause may have been missed each time";
}

TEST(Bursts, AreReturnedInTheRequestedNumber) {
    Bursts::Time now{};
    Bursts bursts(50ms, 3, now);
    for (const char* burst : {"", "one ", "two ", "three"}) {
        EXPECT_EQ(bursts.Take(), "");
        bursts.Receive(burst, now);
        bursts.FindNothing(now += 50ms);
    }
    EXPECT_EQ(bursts.Take(), "one two three");
}

} // namespace
} // namespace Quillane
