#include "setup/SqlServerDialog.h"

#include "station/SampleDatabase.h"

#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/host/StationFile.h"
#include "servers/DeafPort.h"
#include "setup/CreateDatabaseDialog.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane {

using Testing::BoxAnswers;
using Testing::RunModal;
using Testing::ScreenDriver;
using Testing::VisitModal;

namespace {

Box Told(const std::string& text) {
    return {.text = text,
            .title = "Set up the station",
            .icon = BoxIcon::Exclamation,
            .buttons = BoxButtons::Ok};
}

/// Tests that need no server.
class SqlServerDialogTest : public testing::Test {
protected:
    void SetUp() override { TheStation() = StationFile(); }
    void TearDown() override { TheStation() = StationFile(); }

    static void FillIn(ScreenDriver& driver) {
        driver.Type("127.0.0.1").Press(Qt::Key_Return).Press(Qt::Key_Return);
        driver.Press(Qt::Key_Return).Press(Qt::Key_Return);
        driver.Press(Qt::Key_Return).Press(Qt::Key_Return);
        driver.Type("gate").Press(Qt::Key_Return).Type("Weigh_2026").Press(Qt::Key_Return);
    }

    void Work(const std::function<void(ScreenDriver&)>& act) {
        RunModal(dialog, [&](Screen& screen) {
            ScreenDriver driver(screen);
            act(driver);
        });
    }

    FreshFolder folder;
    SqlServerDialog dialog;
};

TEST_F(SqlServerDialogTest, IsFilledInByKeysFromTopToBottom) {
    Work([&](ScreenDriver& driver) {
        EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtServer);
        FillIn(driver);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtOwnerName);
        EXPECT_EQ(dialog.TxtServer.Text(), "127.0.0.1");
        EXPECT_EQ(dialog.TxtPort.Text(), "1433");
        EXPECT_EQ(dialog.TxtDatabase.Text(), "Account1");
        EXPECT_TRUE(dialog.OptPassword.Value());
        EXPECT_EQ(dialog.TxtUserName.Text(), "gate");
        EXPECT_EQ(dialog.TxtPassword.Text(), "Weigh_2026");
        driver.Press(Qt::Key_Escape);
    });
    EXPECT_FALSE(dialog.IsChosen);
}

TEST_F(SqlServerDialogTest, RefusesInvalidEntriesAndKeepsThem) {
    struct Case {
        TextBox SqlServerDialog::*box;
        const char* bad;
        const char* good;
        const char* reason;
    };
    const Case cases[] = {
        {&SqlServerDialog::TxtServer, " ", "127.0.0.1", "Enter the server's name or address."},
        {&SqlServerDialog::TxtPort, "x", "1433", "A port is a number from 1 to 65535."},
        {&SqlServerDialog::TxtDatabase, "Mill", "Account1",
         "The database's name \"Mill\" has fewer than eight characters. The eighth "
         "character is the company number, as in Account1."},
        {&SqlServerDialog::TxtOptions, "x", "",
         "Options are pairs that the driver knows, separated by semicolons: Encryption=require"},
        {&SqlServerDialog::TxtUserName, "", "gate", "Enter the name to sign in with."},
        {&SqlServerDialog::TxtPassword, "", "Weigh_2026", "Enter the password of this name."},
    };
    Work([&](ScreenDriver& driver) {
        FillIn(driver);
        for (const Case& each : cases) {
            TextBox& box = dialog.*each.box;
            box.SetText(each.bad);
            BoxAnswers answers;
            answers.Expect(Told(each.reason));
            driver.Press(Qt::CTRL | Qt::Key_Return);
            EXPECT_EQ(dialog.ActiveControl(), &box) << each.reason;
            EXPECT_EQ(box.Text(), each.bad);
            EXPECT_EQ(dialog.Answer(), "") << "nothing was tried";
            box.SetText(each.good);
        }
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SqlServerDialogTest, RequiresTheOwnersNameAndPasswordTogether) {
    Work([&](ScreenDriver& driver) {
        FillIn(driver);
        BoxAnswers answers;
        dialog.TxtOwnerPassword.SetText("x");
        answers.Expect(Told("Enter the owner's name, or leave the password empty."));
        driver.Press(Qt::CTRL | Qt::Key_Return);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtOwnerName);
        dialog.TxtOwnerName.SetText("sa");
        dialog.TxtOwnerPassword.SetText("");
        answers.Expect(Told("Enter the password of this name."));
        driver.Press(Qt::CTRL | Qt::Key_Return);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtOwnerPassword);
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SqlServerDialogTest, DisablesNameAndPasswordForTheWindowsSignIn) {
    Work([&](ScreenDriver& driver) {
        driver.Press(Qt::ALT | Qt::Key_W);
        EXPECT_TRUE(dialog.OptWindows.Value());
        EXPECT_FALSE(dialog.TxtUserName.Enabled());
        EXPECT_FALSE(dialog.TxtPassword.Enabled());
        driver.Press(Qt::ALT | Qt::Key_M);
        EXPECT_TRUE(dialog.TxtUserName.Enabled());
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SqlServerDialogTest, UsesTheAnonymousUserOnAClientStation) {
    TheStation().StationRole = "Client";
    Work([&](ScreenDriver& driver) {
        EXPECT_EQ(dialog.TxtUserName.Text(), "anonymous");
        EXPECT_TRUE(dialog.TxtUserName.Locked());
        EXPECT_FALSE(dialog.OptWindows.Enabled());
        driver.Press(Qt::Key_Escape);
    });
}

TEST_F(SqlServerDialogTest, ReportsWhyTheServerIsNotReachedAndDoesNotChooseIt) {
    const bool hasDriver = !OdbcDriverLibrary(ConnectionAttributes("Driver=SQL Server")).empty();
    const std::string answer = hasDriver
                                   ? "No SQL Server answers at 127.0.0.1, port "
                                   : "The ODBC driver \"SQL Server\" is not installed. On Debian "
                                     "it is in the package tdsodbc;";
    const DeafPort nobody(false);
    Work([&](ScreenDriver& driver) {
        FillIn(driver);
        dialog.TxtPort.SetText(nobody.Entry().substr(nobody.Entry().rfind('=') + 1));
        driver.Press(Qt::Key_Return);
        EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtOwnerPassword);
        driver.Press(Qt::Key_Return);
        EXPECT_EQ(dialog.Answer().substr(0, answer.size()), answer);
        dialog.TxtServer.SetText("localhost");
        EXPECT_EQ(dialog.Answer(), "") << "the answer was for other entries";
        driver.Press(Qt::ALT | Qt::Key_U);
        EXPECT_TRUE(dialog.IsLoaded()) << "a server that does not work cannot be chosen";
        driver.Press(Qt::Key_Escape);
    });
    EXPECT_FALSE(dialog.IsChosen);
}

TEST_F(SqlServerDialogTest, ReturnsToThisComputerIfNoServerIsChosen) {
    CreateDatabaseDialog setUp(folder.path);
    RunModal(setUp, [&](Screen& screen) {
        ScreenDriver driver(screen);
        EXPECT_TRUE(setUp.OptThisComputer.Value());
        EXPECT_FALSE(setUp.BtnServer.Enabled());
        {
            const VisitModal visit([](Screen& server) {
                EXPECT_EQ(server.Name(), "SqlServerDialog");
                ScreenDriver(server).Press(Qt::Key_Escape);
            });
            driver.Press(Qt::ALT | Qt::Key_S);
        }
        EXPECT_TRUE(setUp.OptThisComputer.Value());
        EXPECT_FALSE(setUp.OptSqlServer.Value());
        driver.Press(Qt::Key_Escape);
    });
    EXPECT_FALSE(setUp.Succeeded);
    EXPECT_FALSE(folder.Has("Config.ini"));
}

} // namespace
} // namespace Quillane
