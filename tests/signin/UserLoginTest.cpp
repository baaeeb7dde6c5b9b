#include "signin/UserLogin.h"

#include "station/SampleDatabase.h"

#include "platform/runtime/Failure.h"
#include "signin/HashChecks.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using Attempt = UserLoginObject::Attempt;
using Testing::BoxAnswers;
using Testing::ScreenDriver;
using Testing::VisitModal;

class Login : public testing::Test {
protected:
    void SetUp() override { login.SetConnection(database.connection); }
    void Run(const char* statement) { database.connection.Execute(statement); }

    SampleDatabase database;
    UserLoginObject login;
};

TEST(SignInPause, DoublesFromTheThirdWrongAttemptUpTo30Seconds) {
    constexpr int seconds[] = {0, 0, 0, 2, 4, 8, 16, 30, 30, 30};
    for (int wrong = 0; wrong < 10; ++wrong)
        EXPECT_EQ(SignInPause(wrong).count(), seconds[wrong]) << wrong;
    EXPECT_EQ(SignInPause(1000000).count(), 30);
}

TEST_F(Login, NameIsNotCaseSensitiveButThePasswordIs) {
    EXPECT_EQ(login.SignIn(" nADIA ", "grain"), Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 1);
    EXPECT_EQ(login.UserName(), "Nadia");
    login.ResetLogin(0);
    EXPECT_EQ(login.UserLevel(), 0);
    EXPECT_EQ(login.UserName(), "");
    EXPECT_EQ(login.SignIn("Nadia", "Grain"), Attempt::Wrong);
    EXPECT_EQ(login.UserLevel(), 0);
}

TEST_F(Login, SecondUserOfTheSampleRowsCanSignIn) {
    EXPECT_EQ(login.SignIn("GATE", "gate"), Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 2);
}

TEST_F(Login, NonAsciiNamesAreNotCaseSensitive) {
    Run("Update StationUsers Set UserName = 'Élodie' Where UserName = 'Nadia'");
    EXPECT_EQ(login.SignIn("éLODIE", "grain"), Attempt::SignedIn);
}

TEST_F(Login, NameIsNotInterpretedAsSql) {
    EXPECT_EQ(login.SignIn("' Or 1=1 --", "grain"), Attempt::Wrong);
    EXPECT_EQ(login.SignIn("", ""), Attempt::Wrong);
    EXPECT_EQ(login.SignIn("nobody", "grain"), Attempt::Wrong);
}

TEST_F(Login, UnknownNameStillComputesAHash) {
    Testing::TakeHashChecks();
    EXPECT_EQ(login.SignIn("nobody", "grain"), Attempt::Wrong);
    EXPECT_EQ(Testing::TakeHashChecks(), std::vector<std::string>{"m=65536,t=2,p=1"});
}

TEST_F(Login, CorrectPasswordResetsThePause) {
    login.SignIn("Nadia", "x");
    login.SignIn("Nadia", "x");
    EXPECT_EQ(login.PauseLeft().count(), 0);
    login.SignIn("Nadia", "x");
    EXPECT_GT(login.PauseLeft().count(), 1000);
    EXPECT_LE(login.PauseLeft().count(), 2000);
    EXPECT_EQ(login.SignIn("Nadia", "grain"), Attempt::SignedIn);
    login.SignIn("Nadia", "x");
    login.SignIn("Nadia", "x");
    EXPECT_LE(login.PauseLeft().count(), 2000);
}

TEST_F(Login, UserOfLevelZeroIsRefused) {
    Run("Update StationUsers Set UserLevel = 0 Where UserName = 'Nadia'");
    EXPECT_EQ(login.SignIn("Nadia", "grain"), Attempt::NoRights);
    EXPECT_EQ(login.UserLevel(), 0);
}

TEST_F(Login, NoUsersAreReportedWithoutADialog) {
    const Box noUsers{.text = "You cannot sign in: the database contains no users.\r\n"
                              "Ask the administrator of the database to add one.",
                      .title = "Sign in",
                      .icon = BoxIcon::Exclamation,
                      .buttons = BoxButtons::Ok};
    BoxAnswers answers;
    Run("Delete From StationUsers");
    answers.Expect(noUsers);
    EXPECT_FALSE(login.Login());
    Run("Drop Table StationUsers");
    answers.Expect(noUsers);
    EXPECT_FALSE(login.Login());
    EXPECT_EQ(login.UserLevel(), 0);
}

TEST_F(Login, CancelledDialogSignsTheUserOut) {
    login.SignIn("Nadia", "grain");
    const VisitModal visit([](Screen& screen) { ScreenDriver(screen).Press(Qt::Key_Escape); });
    EXPECT_FALSE(login.Login());
    EXPECT_EQ(login.UserLevel(), 0);
}

TEST_F(Login, DialogSignsIn) {
    const VisitModal visit([](Screen& screen) {
        ScreenDriver(screen).Type("gate").Press(Qt::Key_Return).Type("gate").Press(Qt::Key_Enter);
    });
    EXPECT_TRUE(login.Login());
    EXPECT_EQ(login.UserLevel(), 2);
}

TEST(UserLogin, LoginWithoutAConnectionFails) {
    EXPECT_THROW(UserLoginObject().Login(), Failure);
}

} // namespace
} // namespace Quillane
