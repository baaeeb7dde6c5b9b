#include "platform/forms/core/Boxes.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SqlServerDialog.h"
#include "shell/Startup.h"
#include "signin/SignInDialog.h"
#include "signin/UserLogin.h"
#include "station/FreshFolder.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QIcon>

#include <gtest/gtest.h>

namespace Quillane {
namespace {

/// The windows and boxes before the start screen.
class WindowIcon : public testing::Test {
protected:
    WindowIcon() { NameProgram(); }
    ~WindowIcon() override { QApplication::setWindowIcon({}); }

    static void ExpectProgramsIcon(const QWidget& window) {
        EXPECT_FALSE(window.windowIcon().isNull()) << window.windowTitle().toStdString();
        EXPECT_EQ(window.windowIcon().cacheKey(), QApplication::windowIcon().cacheKey())
            << window.windowTitle().toStdString();
    }

    FreshFolder folder;
};

TEST_F(WindowIcon, OfTheProgramIsAPicture) {
    EXPECT_FALSE(QApplication::windowIcon().pixmap(32).isNull());
}

TEST_F(WindowIcon, OfSetUpSignInAndWaitingWindowIsThatOfTheProgram) {
    UserLoginObject login;
    ExpectProgramsIcon(SignInDialog(login));
    ExpectProgramsIcon(CreateDatabaseDialog(folder.path));
    ExpectProgramsIcon(SqlServerDialog());
    ExpectProgramsIcon(LockScreen("The start continues"));
}

TEST_F(WindowIcon, OfABoxIsThatOfTheProgram) {
    SetBoxPresenter({});
    {
        const Testing::VisitBox visit([](QDialog& box) {
            ExpectProgramsIcon(box);
            Testing::PressIn(box, Qt::Key_Return);
        });
        MsgBox({.text = "No database.", .title = "Quillane", .icon = BoxIcon::Critical});
    }
    Testing::ForbidUnexpectedBoxes();
}

} // namespace
} // namespace Quillane
