// The messages at the start if a database on SQL Server cannot be used.

#include "SignIn.h"
#include "StationOnServer.h"

#include "data/CompanyProfile.h"
#include "platform/forms/core/EventBoundary.h"
#include "servers/DeafPort.h"
#include "setup/SqlServerDatabaseSetup.h"
#include "station/StationDatabase.h"

namespace Quillane {

namespace {

using Testing::ProcessEnd;
using Testing::VisitModal;

class StartUpOnServer : public StationOnServer {
protected:
    void SetUp() override {
        StationOnServer::SetUp();
        if (IsSkipped())
            return;
        SetUpSqlServerDatabase(Owner(), ParticularsOf("Veltrane Mills", "ali", "wheat"));
        TheStation().CompanyNames[1] = "Veltrane Mills";
    }

    void Configure(const std::string& line) { folder.Write("Config.ini", line); }

    /// Starts, and expects one box of the runtime that contains this text, and the end of the
    /// process.
    void ExpectToEndWith(const std::string& words) {
        const BoxNotes notes;
        const ProcessEnd end;
        RunEvent(Main);
        ASSERT_EQ(notes.boxes.size(), 1U);
        const Box& box = notes.boxes.front();
        EXPECT_NE(box.text.find(words), std::string::npos) << box.text;
        EXPECT_EQ(box.title, "Quillane");
        EXPECT_EQ(box.icon, BoxIcon::Critical);
        EXPECT_EQ(end.Codes(), std::vector<int>{1});
        EXPECT_EQ(TheDesktop, nullptr);
    }
};

TEST_F(StartUpOnServer, UserSignsInAndTheStartScreenIsShown) {
    Configure(Fragment());
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_NE(TheDesktop, nullptr);
    EXPECT_EQ(CompanyProfile->CompanyTitle(), "VELTRANE MILLS");
    EXPECT_EQ(Ask("Select value From Project_Registry Where registrykey = 'CompanyName'"),
              "VELTRANE MILLS");
}

TEST_F(StartUpOnServer, CommaIsReadOnlyInsideQuotes) {
    std::string line = Fragment();
    line.insert(line.find(";Database="), ";APP=Gate 1, mill");
    Configure("\"" + line + "\"");
    {
        const VisitModal visit(SignInAs("ali", "wheat"));
        Main();
    }
    EXPECT_NE(TheDesktop, nullptr);
    TheDesktop.reset();
    ReleaseServices();
    Con.reset();
    Configure(line);
    ExpectToEndWith("nable to connect");
}

TEST_F(StartUpOnServer, UnreachableServerEndsTheProcess) {
    const DeafPort nobody(false);
    Configure(nobody.Entry().substr(1) + ";Database=Account1;UID=gate;PWD=x;TDS_Version=7.4");
    ExpectToEndWith("nable to connect");
}

TEST_F(StartUpOnServer, WrongPasswordEndsTheProcess) {
    Configure(Fragment(Part("Database"), Part("UID"), "wrong"));
    ExpectToEndWith("Login failed for user");
}

TEST_F(StartUpOnServer, UnknownDatabaseEndsTheProcess) {
    Configure(Fragment("Account1_that_nobody_made", Part("UID"), Part("PWD")));
    ExpectToEndWith("ccount1_that_nobody_made");
}

TEST_F(StartUpOnServer, UnknownAnonymousUserEndsTheProcess) {
    TheStation().StationRole = "Client";
    Configure(Fragment());
    ExpectToEndWith("anonymous");
}

TEST_F(StartUpOnServer, DatabaseNameWithoutCompanyNumberEndsTheProcess) {
    // "master" has six characters, and exists on every server.
    Configure(Fragment("master", Part("UID"), Part("PWD")));
    const BoxNotes notes;
    const ProcessEnd end;
    RunEvent(Main);
    ASSERT_FALSE(notes.boxes.empty());
    EXPECT_EQ(notes.boxes.back().text, "Type mismatch: the eighth character of the database name "
                                       "\"master\" is not a company number.");
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

TEST_F(StartUpOnServer, MissingRegistryTableEndsTheProcess) {
    Owner().Execute("DROP TABLE dbo.Project_Registry");
    Configure(Fragment());
    ExpectToEndWith("roject_");
}

TEST_F(StartUpOnServer, MissingUserTableIsReported) {
    Owner().Execute("DROP TABLE dbo.StationUsers");
    Configure(Fragment());
    const BoxNotes notes;
    const ProcessEnd end;
    RunEvent(Main);
    ASSERT_EQ(notes.boxes.size(), 1U);
    EXPECT_EQ(notes.boxes[0].text, "You cannot sign in: the database contains no users.\r\n"
                                   "Ask the administrator of the database to add one.");
    EXPECT_EQ(end.Codes(), std::vector<int>{0});
}

TEST_F(StartUpOnServer, MissingSchemaNumberStartsTheUpgrade) {
    Owner().Execute("DROP TABLE dbo.StationSchema");
    Configure(Fragment());
    const VisitModal visit(SignInAs("ali", "wheat"));
    RunEvent(Main);
    EXPECT_EQ(Ask("Select SchemaVersion From StationSchema"), "2");
    EXPECT_NE(TheDesktop, nullptr);
}

} // namespace
} // namespace Quillane
