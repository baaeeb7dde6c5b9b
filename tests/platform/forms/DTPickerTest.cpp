#include "platform/forms/DTPicker.h"

#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

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

TEST_F(DTPickerTest, TakesTypedDigits) {
    picker.SetFocus();
    driver.Press(Qt::Key_Home).Type("05").Type("03");
    EXPECT_EQ(Day(2026, 3, 5), picker.Value());
    EXPECT_EQ("05/03/2026", changes.back());
}

TEST_F(DTPickerTest, StartsAtToday) {
    SetClock([] { return Day(2031, 2, 28); });
    EXPECT_EQ(Day(2031, 2, 28), DTPicker(screen, "DtpOther").Value());
    SetClock({});
}

} // namespace
} // namespace Quillane::Testing
