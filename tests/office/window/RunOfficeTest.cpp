#include "office/window/RunOffice.h"

#include "office/window/OfficeWindow.h"
#include "platform/forms/core/Screen.h"
#include "signin/UserLogin.h"
#include "station/SampleDatabase.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace Quillane::Office {
namespace {

using Testing::ScreenDriver;
using Testing::VisitModal;

class OfficeStart : public testing::Test {
protected:
    ~OfficeStart() override {
        QApplication::setQuitOnLastWindowClosed(false);
        UserLogin.Release();
    }

    /// Signs in and gives the titles of the window's pages.
    QStringList PagesOf(const char* user, const char* password) {
        const VisitModal visit([=](Screen& dialog) {
            ScreenDriver(dialog)
                .Type(user)
                .Press(Qt::Key_Return)
                .Type(password)
                .Press(Qt::Key_Return);
        });
        QStringList titles;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            if (auto* window = dynamic_cast<OfficeWindow*>(QApplication::activeWindow())) {
                titles = window->Titles();
                window->close();
            }
        });
        look.start(1);
        EXPECT_EQ(RunOffice(database.connection, database.folder.path), 0);
        return titles;
    }

    SampleDatabase database;
};

TEST_F(OfficeStart, UserOfLevelOneSignsInAsAtTheStationAndSeesThePages) {
    EXPECT_TRUE(PagesOf("nadia", "grain").contains("Lists"));
}

TEST_F(OfficeStart, UserOfLevelTwoSeesNoListsAndNoUsers) {
    database.Run("Update StationUsers Set UserLevel = 2");
    const QStringList titles = PagesOf("nadia", "grain");
    for (const char* title : {"Lists", "Users", "Company", "Station"})
        EXPECT_FALSE(titles.contains(title));
}

TEST_F(OfficeStart, NobodySigningInOpensNoWindow) {
    const VisitModal visit([](Screen& dialog) { ScreenDriver(dialog).Press(Qt::Key_Escape); });
    EXPECT_EQ(RunOffice(database.connection, database.folder.path), 0);
}

} // namespace
} // namespace Quillane::Office
