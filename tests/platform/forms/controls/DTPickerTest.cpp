#include "platform/forms/controls/DTPicker.h"

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Boxes.h"
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

class DTPickerTest : public testing::Test {
protected:
    DTPickerTest() {
        screen.layout()->addWidget(&picker.Widget());
        picker.SetTabIndex(-1);
        picker.Change = [this] { changes.push_back(ShownDate(picker.Value())); };
        screen.Show();
        // Typing into the parts requires an active window.
        EXPECT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
        picker.SetValue(Day(2026, 11, 20));
    }

    TrialScreen screen;
    DTPicker picker{screen, "DtpArrivalDate"};
    ScreenDriver driver{screen};
    Events changes;
};

TEST_F(DTPickerTest, ShowsTheDayBeforeTheMonth) {
    EXPECT_EQ("20/11/2026", dynamic_cast<QDateEdit&>(picker.Widget()).text().toStdString());
    EXPECT_EQ(Day(2026, 11, 20), picker.Value());
}

TEST_F(DTPickerTest, ChangesForTheOperatorOnly) {
    picker.SetValue(Day(2026, 11, 21));
    EXPECT_EQ(Events{}, changes);
    picker.SetFocus();
    driver.Press(Qt::Key_Up);
    EXPECT_EQ((Events{"22/11/2026"}), changes);
}

TEST_F(DTPickerTest, TakesTypedDigitsFromPartToPart) {
    picker.SetFocus();
    driver.Type("05").Type("03").Type("2027");
    EXPECT_EQ(Day(2027, 3, 5), picker.Value());
    ASSERT_FALSE(changes.empty());
    EXPECT_EQ("05/03/2027", changes.back());
}

TEST_F(DTPickerTest, TakesTypedDigitsAtAnyPositionOfTheCaret) {
    picker.SetFocus();
    driver.Press(Qt::Key_Home).Type("05").Press(Qt::Key_Home).Type("07");
    EXPECT_EQ(Day(2026, 11, 7), picker.Value());
    driver.Press(Qt::Key_End).Type("2031");
    EXPECT_EQ(Day(2031, 11, 7), picker.Value());
    driver.Click(picker.Widget(), QPoint(10, picker.Widget().height() / 2)).Type("09");
    EXPECT_EQ(Day(2031, 11, 9), picker.Value());
}

TEST_F(DTPickerTest, OpensItsCalendarByKeyAndTakesTheDayWhenItIsLeft) {
    picker.SetFocus();
    auto& edit = dynamic_cast<QDateEdit&>(picker.Widget());
    for (const QKeyCombination key : {QKeyCombination(Qt::Key_F4), Qt::ALT | Qt::Key_Down}) {
        picker.SetValue(Day(2026, 11, 20));
        driver.Press(key);
        ASSERT_TRUE(WaitFor([&] { return edit.calendarWidget()->isVisible(); }));
        driver.Press(Qt::Key_Left).Press(Qt::Key_Tab);
        EXPECT_FALSE(edit.calendarWidget()->isVisible());
        EXPECT_EQ(Day(2026, 11, 19), picker.Value());
        EXPECT_EQ("First", screen.ActiveControlName());
        picker.SetFocus();
    }
}

TEST_F(DTPickerTest, ClosesItsCalendarBeforeABoxIsShown) {
    picker.SetFocus();
    auto& edit = dynamic_cast<QDateEdit&>(picker.Widget());
    driver.Press(Qt::Key_F4);
    ASSERT_TRUE(WaitFor([&] { return edit.calendarWidget()->isVisible(); }));
    const VisitBox visit([&](QDialog& box) {
        EXPECT_FALSE(edit.calendarWidget()->isVisible());
        PressIn(box, Qt::Key_Return);
    });
    MsgBox({.text = "Text", .title = "Title"});
}

TEST_F(DTPickerTest, StartsAtToday) {
    SetClock([] { return Day(2031, 2, 28); });
    EXPECT_EQ(Day(2031, 2, 28), DTPicker(screen, "DtpOther").Value());
    SetClock({});
}

} // namespace
} // namespace Quillane::Testing
