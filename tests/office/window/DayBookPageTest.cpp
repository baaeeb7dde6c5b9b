#include "office/window/DayBookPage.h"

#include "WindowDriver.h"
#include "office/daybook/DayBookDatabase.h"
#include "office/window/OfficeWindow.h"
#include "platform/forms/core/Text.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QDateEdit>
#include <QTabWidget>
#include <QTableView>

#include <array>

namespace Quillane::Office {
namespace {

DayBookPage* made = nullptr;
QWidget* MakePage(OfficeSession& session) {
    return made = new DayBookPage(session);
}
constexpr std::array pages{PageEntry{"Day book", true, MakePage}};

class OfficeDayBookPage : public testing::Test {
protected:
    OfficeDayBookPage() {
        SetClock([] { return DayOf(2024, 5, 2); });
        database.AddLoad(20001, "2024-05-01", 8100.5, 4000, 8100, "LEA-1234");
        database.AddLoad(20002, "2024-05-02", 12000, 0, 12000, "MNA-77");
        database.AddLoad(20003, "2024-05-02", 5000, 4000, 4990, "LEA-1234");
        database.AddArrival(20004, "2024-05-02", "6010002", 2,
                            {{.bags = 50,
                              .bagWeight = 120,
                              .tare = 3500,
                              .otherDeduction = 10,
                              .net = 5990,
                              .vehicle = "FDA-9"}});
    }
    ~OfficeDayBookPage() { SetClock({}); }

    void Show() {
        window = std::make_unique<OfficeWindow>(session, pages);
        window->resize(1366, 768);
        ShowWindow(*window);
        AwaitReading();
    }
    void AwaitReading() {
        ASSERT_TRUE(Testing::WaitFor([] { return !made->IsReading(); }));
    }
    QTabWidget& Tabs() { return *made->findChild<QTabWidget*>(); }
    DayBookTable& Table() { return dynamic_cast<DayBookTable&>(*Tabs().currentWidget()); }
    std::string Cell(int row, int column) {
        return FromQt(Table().View().model()->index(row, column).data().toString());
    }
    std::string Below(int column) {
        return FromQt(Table().Below().model()->index(0, column).data().toString());
    }
    int Rows() { return Table().View().model()->rowCount(); }
    std::string Texts() {
        std::string texts;
        for (const QLabel* label : made->findChildren<QLabel*>())
            if (label->isVisible())
                texts += FromQt(label->text()) + "\n";
        return texts;
    }

    DayBookDatabase database;
    OfficeSession session{.connection = database.connection,
                          .folder = database.folder.path,
                          .company = "Veltrane Flour Mills",
                          .user = "Nadia",
                          .level = 2};
    std::unique_ptr<OfficeWindow> window;
};

constexpr int netColumn = 11;

TEST_F(OfficeDayBookPage, ShowsTodayAndItsSumAtTheStart) {
    Show();
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(Cell(0, 8), "still inside");
    EXPECT_EQ(Cell(1, netColumn), "4,990");
    EXPECT_EQ(Below(netColumn), "10,980");
    EXPECT_NE(Texts().find("3 arrivals, 1 of them still inside and in no sum."), std::string::npos);
}

TEST_F(OfficeDayBookPage, PeriodVehicleAndTabsAreOperatedByKeys) {
    Show();
    Press(*window, Qt::ALT | Qt::Key_P);
    Press(*window, Qt::Key_Down); // yesterday
    AwaitReading();
    EXPECT_EQ(Rows(), 1);
    Press(*window, Qt::Key_Down); // the last 7 days
    AwaitReading();
    EXPECT_EQ(Rows(), 4);
    Press(*window, Qt::ALT | Qt::Key_V);
    Type(*window, "lea-12");
    Press(*window, Qt::Key_Return);
    AwaitReading();
    EXPECT_EQ(Rows(), 2);
    Press(*window, Qt::ALT | Qt::Key_D);
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(Cell(0, 0), "01/05/2024");
    EXPECT_EQ(Cell(0, 8), "8,100");
    EXPECT_EQ(Below(8), "13,090");
    Press(*window, Qt::ALT | Qt::Key_U);
    EXPECT_EQ(Tabs().currentIndex(), 4);
}

TEST_F(OfficeDayBookPage, LastDayBeforeTheFirstIsRefused) {
    Show();
    Press(*window, Qt::ALT | Qt::Key_T);
    Press(*window, Qt::Key_Home);
    Press(*window, Qt::Key_Down); // a day earlier
    EXPECT_EQ(made->findChildren<QDateEdit*>().at(1)->text(), "01/05/2024");
    EXPECT_NE(Texts().find("The last day is before the first one."), std::string::npos);
}

TEST_F(OfficeDayBookPage, CancelledReadingIsReportedAndNotPrinted) {
    database.Together([&] {
        for (int id = 0; id < 3 * DayBook::PageRows; ++id)
            database.AddArrival(21000 + id, "2024-05-02", "6010001", 1, {});
    });
    Show();
    made->Read();
    ASSERT_TRUE(made->IsReading());
    Press(*window, Qt::Key_Escape);
    EXPECT_FALSE(made->IsReading());
    EXPECT_NE(Texts().find("these are not all arrivals"), std::string::npos);
    const Answers answer({"OK"});
    Press(*window, Qt::CTRL | Qt::Key_D);
    EXPECT_EQ(answer.Texts().at(0),
              "The day book has not been read to its end. Wait until it has, or "
              "press F5 to read it again.");
}

TEST_F(OfficeDayBookPage, FilesContainTheShownTable) {
    Show();
    std::vector<QString> proposed;
    made->ChooseFile = [&](const QString& name, const QString&) {
        proposed.push_back(name);
        return ToQt(database.folder.File(FromQt(name)));
    };
    Press(*window, Qt::CTRL | Qt::Key_E);
    Press(*window, Qt::ALT | Qt::Key_B);
    Press(*window, Qt::CTRL | Qt::Key_E);
    Press(*window, Qt::CTRL | Qt::Key_D);
    Press(*window, Qt::CTRL | Qt::Key_B);
    EXPECT_EQ(proposed,
              (std::vector<QString>{"Day book 2024-05-02.csv", "Day book 2024-05-02 by party.csv",
                                    "Day book 2024-05-02.pdf", "Day book 2024-05-02.xlsx"}));
    EXPECT_NE(database.folder.Read("Day book 2024-05-02.csv").find("20003,2024-05-02"),
              std::string::npos);
    EXPECT_NE(database.folder.Read("Day book 2024-05-02 by party.csv").find("6010002,1,0,50"),
              std::string::npos);
    EXPECT_TRUE(database.folder.Read("Day book 2024-05-02.pdf").starts_with("%PDF"));
    EXPECT_TRUE(database.folder.Read("Day book 2024-05-02.xlsx").starts_with("PK"));
}

TEST_F(OfficeDayBookPage, ArrivalStoredLaterIsShownAfterReadAgain) {
    Show();
    database.AddLoad(20005, "2024-05-02", 5000, 4000, 5000);
    EXPECT_EQ(Rows(), 3);
    Press(*window, Qt::Key_F5);
    AwaitReading();
    EXPECT_EQ(Rows(), 4);
    EXPECT_EQ(Below(netColumn), "15,980");
}

TEST_F(OfficeDayBookPage, DatabaseThatRefusesIsReportedOnThePage) {
    Show();
    database.Rename("ArrivalsBody", "ArrivalsBodyAway");
    Press(*window, Qt::Key_F5);
    AwaitReading();
    EXPECT_TRUE(ToQt(Texts()).contains("ArrivalsBody", Qt::CaseInsensitive)) << Texts();
    database.Rename("ArrivalsBodyAway", "ArrivalsBody");
}

} // namespace
} // namespace Quillane::Office
