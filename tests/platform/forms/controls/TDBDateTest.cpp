#include "platform/forms/controls/TDBDate.h"

#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

Date Day(int year, unsigned month, unsigned day) {
    return {std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
}

class TDBDateTest : public testing::Test {
protected:
    TDBDateTest() {
        screen.layout()->addWidget(&date.Widget());
        date.SetTabIndex(0);
        screen.First.SetTabIndex(1);
        date.Change = [this] { changes.push_back(ShownDate(date.Value())); };
        screen.Show();
        EXPECT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
        date.SetValue(Day(2026, 11, 20));
        screen.LogKeys = true;
        screen.Taken();
    }

    std::string Shown() { return dynamic_cast<QDateEdit&>(date.Widget()).text().toStdString(); }

    TrialScreen screen;
    TDBDate date{screen, "DtpFromDate"};
    ScreenDriver driver{screen};
    Events changes;
};

TEST_F(TDBDateTest, ReportsItsType) {
    EXPECT_EQ("TDBDate", date.TypeName());
}

TEST_F(TDBDateTest, ChangesForTheOperatorAndNotForAValueFromCode) {
    date.SetValue(Day(2026, 11, 21));
    EXPECT_EQ("21/11/2026", Shown());
    EXPECT_EQ(Events{}, changes);
    driver.Press(Qt::Key_Up);
    EXPECT_EQ(Events{"22/11/2026"}, changes);
}

struct Typed {
    Date before;
    const char* keys;
    Events changes;
};

TEST_F(TDBDateTest, IsTypedDigitByDigitWithSeparatorsOrWithout) {
    const Date start = Day(2026, 11, 20);
    const Typed cases[] = {
        {start, "05032027", {"05/11/2026", "05/03/2026", "05/03/2027"}},
        {start, "05/03/2027", {"05/11/2026", "05/03/2026", "05/03/2027"}},
        {start, "5/3/2027", {"05/11/2026", "05/03/2026", "05/03/2027"}},
        {start, "1/2/2027", {"01/11/2026", "01/02/2026", "01/02/2027"}},
        {start, "5-3-2027", {"05/11/2026", "05/03/2026", "05/03/2027"}},
        {start, "1.2.2027", {"01/11/2026", "01/02/2026", "01/02/2027"}},
        {start, "//2025", {"20/11/2025"}},
        {start, "20112026", {}},
        // The typed day is restored as soon as the month has enough days.
        {start, "31122025", {"30/11/2026", "31/12/2026", "31/12/2025"}},
        {Day(2026, 2, 20), "31/03/2026", {"28/02/2026", "31/03/2026"}},
        {Day(2026, 3, 31), "28022026", {"28/03/2026", "28/02/2026"}},
        {Day(2026, 3, 31), "29022024", {"29/03/2026", "28/02/2026", "29/02/2024"}},
        {Day(2026, 3, 31), "30022026", {"30/03/2026", "28/02/2026"}},
        // A number that is not valid for the part is ignored, and typing continues in the next one.
        {start, "00032027", {"20/03/2026", "20/03/2027"}},
        {start, "35122027", {"20/12/2026", "20/12/2027"}},
        {start, "05132027", {"05/11/2026", "05/11/2027"}},
        {start, "05110000", {"05/11/2026"}},
    };
    for (const Typed& each : cases) {
        date.SetValue(each.before);
        screen.First.SetFocus();
        date.SetFocus();
        changes.clear();
        driver.Type(each.keys);
        EXPECT_EQ(each.changes, changes) << each.keys;
        EXPECT_EQ(ShownDate(date.Value()), Shown()) << each.keys;
    }
}

TEST_F(TDBDateTest, ShowsTheDigitsOfAPartAsTheyAreTypedAndChangesWithThePart) {
    driver.Type("2");
    EXPECT_EQ("2/11/2026", Shown());
    driver.Type("5");
    EXPECT_EQ("25/11/2026", Shown());
    driver.Type("//202");
    EXPECT_EQ("25/11/202", Shown());
    EXPECT_EQ(Events{"25/11/2026"}, changes);
    EXPECT_EQ(Day(2026, 11, 25), date.Value());
}

TEST_F(TDBDateTest, BackspaceRemovesADigitAndDeleteAPart) {
    driver.Type("1").Press(Qt::Key_Backspace).Type("25");
    EXPECT_EQ("25/11/2026", Shown());
    driver.Press(Qt::Key_Backspace).Type("3/");
    EXPECT_EQ("25/03/2026", Shown());
    driver.Press(Qt::Key_End).Press(Qt::Key_Backspace);
    EXPECT_EQ("25/03/202", Shown());
    driver.Type("9");
    EXPECT_EQ("25/03/2029", Shown());
    driver.Press(Qt::Key_Delete);
    EXPECT_EQ("25/03/", Shown());
    EXPECT_EQ((Events{"25/11/2026", "25/03/2026", "25/03/2029"}), changes);
    driver.Press(Qt::Key_Tab);
    EXPECT_EQ("25/03/2029", Shown());
}

struct Left {
    const char* keys;
    const char* shown;
};

TEST_F(TDBDateTest, TakesThePartThatIsBeingTypedAsItIsLeft) {
    const Left cases[] = {
        {"3", "03/11/2026"},        {"0", "20/11/2026"},        {"//27", "20/11/2027"},
        {"051", "05/01/2026"},      {"0503202", "05/03/2026"},  {"05030", "05/03/2026"},
        {"05030027", "05/03/2026"}, {"05039999", "05/03/9999"},
    };
    for (const Left& each : cases) {
        date.SetValue(Day(2026, 11, 20));
        date.SetFocus();
        driver.Type(each.keys).Press(Qt::Key_Tab);
        EXPECT_EQ(each.shown, Shown()) << each.keys;
        EXPECT_EQ(each.shown, ShownDate(date.Value())) << each.keys;
    }
}

TEST_F(TDBDateTest, TakesThePartThatIsBeingTypedBeforeAnArrowAPressAndAShortcut) {
    driver.Type("3").Press(Qt::Key_Up);
    EXPECT_EQ(Day(2026, 11, 4), date.Value());
    driver.Type("1").Click(date.Widget(), QPoint(10, date.Widget().height() / 2));
    EXPECT_EQ(Day(2026, 11, 1), date.Value());
    Date seen = date.Value();
    screen.OnKeyDown = [&](int& key, int) { seen = key == 'S' ? date.Value() : seen; };
    driver.Type("2").Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Day(2026, 11, 2), seen);
}

TEST_F(TDBDateTest, DayBeyondTheMonthIsRememberedUntilTheBoxIsLeft) {
    driver.Type("31").Press(Qt::Key_Tab);
    EXPECT_EQ("30/11/2026", Shown());
    date.SetFocus();
    driver.Type("/12");
    EXPECT_EQ("30/12/2026", Shown());
    date.SetValue(Day(2026, 11, 20));
    driver.Press(Qt::Key_Home).Type("31").Press(Qt::Key_Home).Press(Qt::Key_Down);
    driver.Type("/12");
    EXPECT_EQ("29/12/2026", Shown());
    date.SetValue(Day(2026, 11, 20));
    driver.Press(Qt::Key_Home).Type("31");
    date.SetValue(Day(2026, 11, 10));
    driver.Type("12");
    EXPECT_EQ("10/12/2026", Shown());
}

TEST_F(TDBDateTest, ValueFromCodeAndEscapeDropTheTypedDigits) {
    driver.Type("3");
    date.SetValue(Day(2026, 12, 24));
    EXPECT_EQ("24/12/2026", Shown());
    driver.Press(Qt::Key_Home).Type("3").Press(Qt::Key_Escape);
    EXPECT_EQ("24/12/2026", Shown());
    driver.Press(Qt::Key_Tab);
    EXPECT_EQ("24/12/2026", Shown());
    EXPECT_EQ(Events{}, changes);
}

TEST_F(TDBDateTest, TakesDigitsOfAnInputMethodAndNoLetters) {
    driver.Commit("05").Commit("03").Type("ab").Commit("2027");
    EXPECT_EQ("05/03/2027", Shown());
}

TEST_F(TDBDateTest, LeavesEnterEscapeAndCtrlQToTheScreen) {
    driver.Press(Qt::Key_Return).Press(Qt::Key_Escape).Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_EQ((Events{"KeyDown 13 0", "KeyDown 27 0", "KeyDown 81 2"}), screen.Taken());
    EXPECT_EQ("DtpFromDate", screen.ActiveControlName());
    EXPECT_EQ(Events{}, changes);
}

TEST_F(TDBDateTest, EscapeClosesItsCalendarWithTheFormerDayAndTheScreenDoesNotGetTheKey) {
    auto& edit = dynamic_cast<QDateEdit&>(date.Widget());
    driver.Press(Qt::Key_F4);
    ASSERT_TRUE(WaitFor([&] { return edit.calendarWidget()->isVisible(); }));
    driver.Press(Qt::Key_Left);
    EXPECT_EQ("19/11/2026", Shown());
    screen.Taken();
    driver.Press(Qt::Key_Escape);
    EXPECT_FALSE(edit.calendarWidget()->isVisible());
    EXPECT_EQ("20/11/2026", Shown());
    EXPECT_EQ((Events{"19/11/2026", "20/11/2026"}), changes);
    EXPECT_EQ(Events{}, screen.Taken());
    driver.Press(Qt::Key_Escape);
    EXPECT_EQ(Events{"KeyDown 27 0"}, screen.Taken());
}

} // namespace
} // namespace Quillane::Testing
