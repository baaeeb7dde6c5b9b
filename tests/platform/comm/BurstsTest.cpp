#include "platform/comm/Bursts.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using namespace std::chrono_literals;

/// A line whose silence is 50 ms, read two bursts at a time; time passes as the test says.
class BurstsTest : public testing::Test {
protected:
    void Pass(Bursts::Duration time) { now_ += time; }
    void Receive(std::string_view bytes) { bursts.Receive(bytes, now_); }
    void FindNothing() { bursts.FindNothing(now_); }
    /// The bytes, and then a silence that a look has seen.
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

TEST_F(BurstsTest, AreTakenTwoAtATime) {
    StartWithASilence();
    ReceiveBurst("one ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("two ");
    EXPECT_EQ(bursts.Take(), "one two ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("three ");
    EXPECT_EQ(bursts.Take(), "") << "each is taken once";
    ReceiveBurst("four ");
    ReceiveBurst("five");
    EXPECT_EQ(bursts.Take(), "three four five");
}

TEST_F(BurstsTest, LeaveTheOneThatIsBeingReceived) {
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

TEST_F(BurstsTest, EndWithASilenceOfFullLengthOnly) {
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

// The program was busy: what it finds then may have come at any time.
TEST_F(BurstsTest, AreNotEndedByTimeInWhichNobodyLooked) {
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

TEST_F(BurstsTest, AreJoinedByASilenceThatNobodySaw) {
    StartWithASilence();
    Receive("one ");
    Pass(400ms);
    ReceiveBurst("two ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("three");
    EXPECT_EQ(bursts.Take(), "one two three");
}

TEST_F(BurstsTest, BeginAfterTheFirstSilence) {
    EXPECT_FALSE(bursts.IsSilent());
    Receive("540 kg ");
    Pass(20ms);
    ReceiveBurst("cut ");
    ReceiveBurst("one ");
    EXPECT_EQ(bursts.Take(), "");
    ReceiveBurst("two");
    EXPECT_EQ(bursts.Take(), "one two");
}

TEST_F(BurstsTest, AreNotMadeBySilenceAlone) {
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

TEST_F(BurstsTest, SeeALineThatNeverPauses) {
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
    EXPECT_FALSE(bursts.NeverPauses()) << "it has paused now";
    sendFor(4990ms);
    EXPECT_FALSE(bursts.NeverPauses());
}

TEST_F(BurstsTest, DoNotCallALineEndlessThatNobodyWatched) {
    StartWithASilence();
    for (int look = 0; look < 200; ++look) {
        Pass(50ms);
        Receive("12540 ");
    }
    EXPECT_FALSE(bursts.NeverPauses()) << "a silence may have gone unseen each time";
}

TEST(Bursts, AreTakenAsManyAtATimeAsIsAskedFor) {
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
