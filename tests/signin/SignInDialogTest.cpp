#include "signin/SignInDialog.h"

#include "station/SampleDatabase.h"

#include "platform/forms/core/Text.h"
#include "platform/host/BackupRecord.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/host/Version.h"
#include "signin/UserLogin.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QLabel>

#include <algorithm>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::RunModal;
using Testing::ScreenDriver;
using Testing::WaitFor;

class SignInDialogTest : public testing::Test {
protected:
    void SetUp() override { login.SetConnection(database.connection); }

    void TryWrong(ScreenDriver& driver, int times) {
        for (int time = 0; time < times; ++time)
            driver.Type("x").Press(Qt::Key_Return);
    }

    SampleDatabase database;
    UserLoginObject login;
    SignInDialog dialog{login};
};

TEST_F(SignInDialogTest, EnterMovesToThePasswordAndThenSignsIn) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        EXPECT_EQ(dialog.ActiveControlName(), "TxtUserName");
        driver.Type("nadia").Press(Qt::Key_Return);
        EXPECT_EQ(dialog.ActiveControlName(), "TxtPassword");
        driver.Type("grain").Press(Qt::Key_Return);
        EXPECT_FALSE(dialog.IsLoaded());
    });
    EXPECT_EQ(login.UserLevel(), 1);
}

/// The station's file and folder, as the test has left them.
class OldBackup {
public:
    explicit OldBackup(const std::string& folder) {
        SetStationFolder(folder);
        TheStation().WarnAfterBackupDays = 3;
        WriteBackupRecord(folder, {}, "Account1-19700101-000000.db");
    }
    ~OldBackup() {
        TheStation() = {};
        SetStationFolder({});
    }
};

TEST_F(SignInDialogTest, OldBackupIsReportedWithoutAStatement) {
    const OldBackup old(database.folder.path);
    std::vector<std::string> statements;
    database.connection.StatementObserver = [&](std::string_view text) {
        statements.emplace_back(text);
    };
    RunModal(dialog, [&](Screen& screen) {
        ScreenDriver driver(screen);
        if (OnSqlServer()) {
            EXPECT_EQ(dialog.Reminder(), "");
        } else {
            EXPECT_NE(dialog.Reminder().find("01/01/1970"), std::string::npos);
        }
        EXPECT_TRUE(statements.empty());
        driver.Press(Qt::Key_Tab).Press(Qt::Key_Tab).Press(Qt::Key_Tab).Press(Qt::Key_Tab);
        EXPECT_EQ(dialog.ActiveControlName(), "TxtUserName") << "no other tab stop";
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SignInDialogTest, NoReminderWithoutConfiguredDays) {
    RunModal(dialog, [&](Screen& screen) {
        EXPECT_EQ(dialog.Reminder(), "");
        ScreenDriver(screen).Press(Qt::Key_Escape);
    });
}

TEST_F(SignInDialogTest, TabVisitsAllControlsAndEnterOrSpacePressesAButton) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_Tab).Type("grain").Press(Qt::Key_Tab);
        EXPECT_EQ(dialog.ActiveControlName(), "BtnSignIn");
        driver.Press(Qt::Key_Tab);
        EXPECT_EQ(dialog.ActiveControlName(), "BtnCancel");
        driver.Press(Qt::Key_Tab);
        EXPECT_EQ(dialog.ActiveControlName(), "TxtUserName");
        driver.Press(Qt::Key_Tab).Press(Qt::Key_Tab).Press(Qt::Key_Return);
    });
    EXPECT_EQ(login.UserLevel(), 1);
}

TEST_F(SignInDialogTest, EscapeButtonAndCloseCancel) {
    RunModal(dialog, [](Screen& screen) { ScreenDriver(screen).Press(Qt::Key_Escape); });
    RunModal(dialog, [this](Screen& screen) { ScreenDriver(screen).Click(dialog.BtnCancel); });
    RunModal(dialog, [this](Screen&) { dialog.close(); });
    EXPECT_EQ(login.UserLevel(), 0);
}

TEST_F(SignInDialogTest, WrongPasswordKeepsTheName) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_Return).Type("chaff").Press(Qt::Key_Return);
        EXPECT_EQ(dialog.Message(), "The name or the password is wrong.");
        EXPECT_EQ(dialog.TxtUserName.Text(), "nadia");
        EXPECT_EQ(dialog.TxtPassword.Text(), "");
        EXPECT_EQ(dialog.ActiveControlName(), "TxtPassword");
        driver.Type("grain").Press(Qt::Key_Return);
    });
    EXPECT_EQ(login.UserLevel(), 1);
}

TEST_F(SignInDialogTest, VersionIsShown) {
    const auto labels = dialog.findChildren<QLabel*>();
    const QString version = "Version " + ToQt(QuillaneVersion());
    EXPECT_TRUE(std::ranges::any_of(labels, [&](QLabel* each) { return each->text() == version; }));
}

TEST_F(SignInDialogTest, F1ShowsTheProgramInformationAndKeepsTheEntries) {
    int shown = 0;
    login.About = [&shown] { ++shown; };
    RunModal(dialog, [&](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_F1);
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(dialog.TxtUserName.Text(), "nadia");
        EXPECT_EQ(dialog.ActiveControlName(), "TxtUserName");
        login.About = {};
        driver.Press(Qt::Key_F1).Press(Qt::Key_Escape);
    });
    EXPECT_EQ(shown, 1);
}

TEST_F(SignInDialogTest, UnknownNameGivesTheSameMessage) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nobody").Press(Qt::Key_Return).Type("grain").Press(Qt::Key_Return);
        EXPECT_EQ(dialog.Message(), "The name or the password is wrong.");
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SignInDialogTest, CountdownStartsAfterTheThirdWrongPassword) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_Return);
        TryWrong(driver, 3);
        EXPECT_EQ(dialog.Message(), "The name or the password is wrong.\nThe next attempt in 2 s.");
        EXPECT_FALSE(dialog.BtnSignIn.Enabled());
        driver.Type("grain").Press(Qt::Key_Return);
        EXPECT_EQ(login.UserLevel(), 0) << "Enter waits too";
        EXPECT_TRUE(WaitFor([this] { return dialog.Message().ends_with(" 1 s."); }));
        EXPECT_TRUE(WaitFor([this] { return dialog.BtnSignIn.Enabled(); }));
        EXPECT_EQ(dialog.Message(), "The name or the password is wrong.");
        EXPECT_EQ(dialog.TxtPassword.Text(), "grain");
        driver.Press(Qt::Key_Return);
    });
    EXPECT_EQ(login.UserLevel(), 1);
}

TEST_F(SignInDialogTest, ReopeningTheDialogKeepsThePause) {
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_Return);
        TryWrong(driver, 3);
        driver.Press(Qt::Key_Escape);
    });
    SignInDialog again(login);
    RunModal(again, [&again](Screen& screen) {
        EXPECT_FALSE(again.BtnSignIn.Enabled());
        EXPECT_TRUE(again.Message().starts_with("The next attempt in "));
        ScreenDriver(screen).Press(Qt::Key_Escape);
    });
}

TEST_F(SignInDialogTest, DatabaseFailureIsReportedAndTheDialogStays) {
    database.connection.Execute("Drop Table StationUsers");
    BoxAnswers answers;
    answers.Expect(Testing::Critical(EngineWords("no such table: StationUsers"), "Database"));
    RunModal(dialog, [this](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("nadia").Press(Qt::Key_Return).Type("grain").Press(Qt::Key_Return);
        EXPECT_TRUE(dialog.IsLoaded());
        driver.Press(Qt::Key_Escape);
    });
}

} // namespace
} // namespace Quillane
