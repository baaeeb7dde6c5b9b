// The box of the arrival id: its change handler and its validation.

#include "weighment/WeighmentFixture.h"

#include <limits>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::Lines;
using Testing::ScreenDriver;
using Testing::StatementsOf;
using Testing::Trace;

const std::string Counting = "Select count(*) From Arrivals where ArrivalID = ";

class FrmWeighmentArrivalId : public Testing::WeighmentScreenTest {
protected:
    /// The trace when the box is left with this text.
    Lines Leaving(std::string_view text, const std::function<void()>& leave) {
        screen->TxtArrivalId.SetFocus();
        screen->TxtArrivalId.SetText(text);
        Trace trace(*screen, line);
        leave();
        Lines done = trace.Take();
        std::erase_if(done, [](const std::string& each) {
            return each.starts_with("LostFocus") || each.starts_with("GotFocus");
        });
        return done;
    }
    Lines LeavingByTab(std::string_view text) {
        return Leaving(text, [this] { ScreenDriver(*screen).Press(Qt::Key_Tab); });
    }
};

TEST_F(FrmWeighmentArrivalId, ArrivalNoFollowsTheBox) {
    const std::pair<const char*, std::int32_t> texts[] = {
        {"1040", 1040},
        {"2.5", 2},
        {"3.5", 4},
        {"12abc", 12},
        {"", 0},
        {"abc", 0},
        {" 7 8 ", 78},
        {"-5", -5},
        {"1e3", 1000},
        {"0.5", 0},
        {"2147483647", std::numeric_limits<std::int32_t>::max()},
    };
    for (const auto& [text, number] : texts) {
        screen->TxtArrivalId.SetText(text);
        EXPECT_EQ(screen->ArrivalNo, number) << text;
    }
}

TEST_F(FrmWeighmentArrivalId, ArrivalNoFollowsEachKey) {
    ScreenDriver driver(*screen);
    driver.Type("12");
    EXPECT_EQ(screen->ArrivalNo, 12);
    driver.Press(Qt::Key_Backspace);
    EXPECT_EQ(screen->ArrivalNo, 1);
}

TEST_F(FrmWeighmentArrivalId, IdBeyond32BitsIsReportedAndKeepsArrivalNo) {
    for (const char* text : {"2147483648", "9999999999", "-2147483649", "1e300"}) {
        screen->TxtArrivalId.SetText("1040");
        BoxAnswers answers;
        answers.Expect(Critical("Overflow", "Quillane"));
        screen->TxtArrivalId.SetText(text);
        EXPECT_EQ(screen->ArrivalNo, 1040) << text;
        EXPECT_EQ(screen->TxtArrivalId.Text(), text);
    }
    screen->TxtArrivalId.SetText("1040");
}

TEST_F(FrmWeighmentArrivalId, IdBeyond32BitsIsReportedWhileItIsTyped) {
    BoxAnswers answers;
    answers.Expect(Critical("Overflow", "Quillane"));
    ScreenDriver(*screen).Type("9999999999");
    EXPECT_EQ(screen->ArrivalNo, 999999999);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "9999999999");
}

TEST_F(FrmWeighmentArrivalId, FreeIdIsLeftWithoutAMessage) {
    for (const auto& [text, number] : {std::pair{"1043", "1043"},
                                       {"5000", "5000"},
                                       {"", "0"},
                                       {"abc", "0"},
                                       {"-5", "-5"},
                                       {"10.5", "10.5"},
                                       {"9' OR 1=1", "9"},
                                       {"1;DROP", "1"},
                                       {"2000000000", "2000000000"}})
        EXPECT_EQ(LeavingByTab(text), (Lines{"Validate TxtArrivalId", Counting + number})) << text;
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

TEST_F(FrmWeighmentArrivalId, DisabledBoxOrClosedScreenRunsNoLookUp) {
    EXPECT_EQ(Leaving("1040", [this] { screen->TxtArrivalId.SetEnabled(false); }), Lines{});
    screen->TxtArrivalId.SetEnabled(true);
    EXPECT_EQ(Leaving("1040", [this] { screen->Unload(); }), Lines{});
}

TEST_F(FrmWeighmentArrivalId, FailedLookUpIsReportedAndTheFocusMovesOn) {
    database.Rename("Arrivals", "Elsewhere");
    EXPECT_EQ(LeavingByTab("1040"), (Lines{"Validate TxtArrivalId", Counting + "1040",
                                           Testing::DatabaseBox("no such table: Arrivals")}));
    EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
}

} // namespace
} // namespace Quillane
