#include "platform/runtime/Date.h"

#include "platform/runtime/Failure.h"

#include <gtest/gtest.h>

#include <ctime>

namespace Quillane {
namespace {

using namespace std::chrono_literals;

constexpr Date opening = 2026y / 11 / 20;

TEST(Date, LiteralDoesNotDependOnTheLanguageSetting) {
    EXPECT_EQ(DateLiteral(opening), "2026-11-20T00:00:00");
    EXPECT_EQ(DateLiteral(987y / 1 / 2), "0987-01-02T00:00:00");
}

TEST(Date, ShownDateHasTheDayFirst) {
    EXPECT_EQ(ShownDate(opening), "20/11/2026");
    EXPECT_EQ(ShownDate(2026y / 1 / 2), "02/01/2026");
}

TEST(Date, IsReadFromTheBeginningOfAText) {
    for (const char* text : {"2026-11-20", "2026-11-20T00:00:00", "2026-11-20 17:45:03.123"})
        EXPECT_EQ(ParseDate(text), opening) << text;
    EXPECT_EQ(ParseDate("2024-02-29"), 2024y / 2 / 29);
}

TEST(Date, OtherTextIsATypeMismatch) {
    for (const char* text :
         {"", "2026", "2026-11-2", "20/11/2026", "2026-13-01", "2026-02-29", "2026-00-10",
          "2026-11-00", "2026/11/20", "2O26-11-20", " 2026-11-20", "-026-11-20"}) {
        try {
            ParseDate(text);
            ADD_FAILURE() << "read: " << text;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::TypeMismatch) << text;
        }
    }
}

TEST(Date, AddDaysCrossesMonthsAndYears) {
    EXPECT_EQ(AddDays(2026y / 12 / 31, 1), 2027y / 1 / 1);
    EXPECT_EQ(AddDays(2024y / 2 / 28, 1), 2024y / 2 / 29);
    EXPECT_EQ(AddDays(2026y / 3 / 1, -1), 2026y / 2 / 28);
    EXPECT_EQ(AddDays(opening, 0), opening);
}

TEST(Date, TodayComesFromTheGivenClockOrTheLocalOne) {
    SetClock([] { return opening; });
    EXPECT_EQ(Today(), opening);
    SetClock({});
    // Midnight may pass between the two readings of the clock.
    const Date before = Today();
    const std::time_t now = std::time(nullptr);
    char shown[32];
    std::strftime(shown, sizeof shown, "%d/%m/%Y", std::localtime(&now));
    EXPECT_TRUE(shown == ShownDate(before) || shown == ShownDate(Today()));
}

} // namespace
} // namespace Quillane
