// The set-up dialog on a SQL Server, from the first key to the first sign-in.

#include "SignIn.h"
#include "StationOnServer.h"

#include "platform/forms/dialogs/WaitingScreen.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/DatabaseSetup.h"
#include "setup/SqlServerDatabaseSetup.h"
#include "setup/SqlServerDialog.h"
#include "setup/SqlServerSetup.h"
#include "station/StationDatabase.h"
#include "support/FailureOf.h"
#include "support/ScreenDriver.h"

#include <functional>

namespace Quillane {

using Testing::BoxAnswers;
using Testing::ScreenDriver;
using Testing::VisitModal;
using Testing::WaitFor;

namespace {

constexpr const char* oddPassword = "Weigh;1, of 2}";

NewDatabase Particulars() {
    NewDatabase particulars = ParticularsOf("Veltrane", "nadia", "grain");
    particulars.companyAddress = "14 Canal Road";
    particulars.companyPhone = "044";
    particulars.companyEmail = "g@v.example";
    return particulars;
}

class SetupOnServer : public StationOnServer {
protected:
    SqlServerTarget Target() const {
        return {.server = Part("Server"),
                .port = Part("Port"),
                .database = Part("Database"),
                .userName = Part("UID"),
                .password = Part("PWD")};
    }
    OwnerSignIn OwnersSignIn() const { return {.userName = Part("UID"), .password = Part("PWD")}; }

    /// Goes through the set-up dialog up to the server's dialog, works in that, and continues in
    /// the first.
    void SetUpStation(const std::function<void(SqlServerDialog&, ScreenDriver&)>& onServer,
                      const std::function<void(Screen&, ScreenDriver&)>& afterwards = {}) {
        DatabaseSetupObject setup;
        const VisitModal visit([&](Screen& screen) {
            {
                const VisitModal server([&](Screen& dialog) {
                    ScreenDriver driver(dialog);
                    onServer(dynamic_cast<SqlServerDialog&>(dialog), driver);
                });
                ScreenDriver(screen).Press(Qt::ALT | Qt::Key_S);
            }
            ScreenDriver driver(screen);
            if (afterwards)
                afterwards(screen, driver);
        });
        setup.CreateDatabase();
        succeeded = setup.Succeeded();
    }

    /// Chooses the server. The set-up's dialog then continues, or no other dialog is shown.
    void Take(SqlServerDialog& dialog, ScreenDriver& driver, const SqlServerTarget& target,
              const OwnerSignIn& owner = {}) {
        dialog.Offer(target, owner);
        driver.Press(Qt::CTRL | Qt::Key_Return);
        EXPECT_TRUE(WaitFor([&] { return !dialog.IsLoaded(); })) << dialog.Answer();
    }

    static void FillIn(ScreenDriver& driver) {
        for (const char* text :
             {"Veltrane", "14 Canal Road", "044", "g@v.example", "nadia", "grain", "grain"})
            driver.Type(text).Press(Qt::Key_Return);
    }

    Box UseExisting() {
        return {.text = "There is already a database here:\r\n" + Part("Database") + " on " +
                        Part("Server") + ", port " + Part("Port") +
                        "\r\n(Veltrane; 0 arrivals, 1 users)\r\n\r\n"
                        "Use it without changes?",
                .title = "Set up the station",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo};
    }

    bool succeeded = false;
};

// ---- a complete set-up ----

TEST_F(SetupOnServer, EmptyDatabaseIsSetUpAndUsed) {
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            dialog.Offer(Target(), {});
            driver.Press(Qt::ALT | Qt::Key_T);
            EXPECT_EQ(dialog.Answer(), "It works. The database has no station tables yet; the "
                                       "set-up will create them.");
            EXPECT_EQ(dialog.ActiveControl(), &dialog.BtnUse);
            driver.Press(Qt::Key_Return);
        },
        [&](Screen& screen, ScreenDriver& driver) {
            EXPECT_EQ(screen.ActiveControlName(), "TxtCompanyName");
            FillIn(driver);
            EXPECT_FALSE(folder.Has("Config.ini"));
            driver.Press(Qt::Key_Space).Press(Qt::Key_Return);
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
        });
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(folder.Read("Config.ini"), Fragment() + "\n");
    EXPECT_EQ(StationFile::Read(folder.File("Station.ini")).CompanyNames[1], "Veltrane");
    EXPECT_EQ(Ask("Select Count(*) From Arrivals"), "12");
    EXPECT_EQ(Ask("Select value From Project_Registry Where registrykey = 'CompanyAddress'"),
              "14 Canal Road");
    const VisitModal visit(SignInAs("nadia", "grain"));
    Main();
    EXPECT_NE(TheDesktop, nullptr);
}

TEST_F(SetupOnServer, CompleteDatabaseIsUsedUnchangedByAnotherStation) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::Yes);
    SetUpStation([&](SqlServerDialog& dialog, ScreenDriver& driver) {
        dialog.Offer(Target(), {});
        driver.Press(Qt::ALT | Qt::Key_T);
        EXPECT_EQ(dialog.Answer(),
                  "It works. This is a station's database: Veltrane; 0 arrivals, 1 user.");
        driver.Press(Qt::Key_Return);
    });
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(folder.Read("Config.ini"), Fragment() + "\n");
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane");
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "1");
}

// ---- a database that has particulars already ----

class SetupOnServerWithParticulars : public SetupOnServer {
protected:
    /// A database without users, with a name, an address and a phone.
    void SetUp() override {
        SetupOnServer::SetUp();
        if (IsSkipped())
            return;
        SetUpSqlServerDatabase(Owner(), Particulars());
        Owner().Execute("Delete From StationUsers");
        Owner().Execute("Delete From Project_Registry Where registrykey = 'CompanyEmail'");
    }
    static void EnterUser(ScreenDriver& driver) {
        for (const char* text : {"nadia", "grain", "grain"})
            driver.Type(text).Press(Qt::Key_Return);
    }
    static CreateDatabaseDialog& DialogOf(Screen& screen) {
        return dynamic_cast<CreateDatabaseDialog&>(screen);
    }
    std::string Stored(const std::string& key) {
        return Ask("Select value From Project_Registry Where registrykey = '" + key + "'");
    }
    static Box Replace(const std::string& changes) {
        return {.text = "The database already contains particulars of the company. These differ "
                        "from your entries:\r\n" +
                        changes + "\r\n\r\nReplace them in the database?",
                .title = "Set up the station",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo};
    }
    /// Chooses the server, changes the boxes, and creates the database.
    void Change(const std::function<void(CreateDatabaseDialog&)>& change,
                const std::function<void(CreateDatabaseDialog&)>& afterwards = {}) {
        SetUpStation(
            [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
            [&](Screen& screen, ScreenDriver& driver) {
                DialogOf(screen).TxtUserName.SetFocus();
                EnterUser(driver);
                change(DialogOf(screen));
                driver.Press(Qt::CTRL | Qt::Key_Return);
                if (afterwards)
                    afterwards(DialogOf(screen));
                EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
            });
    }
};

TEST_F(SetupOnServerWithParticulars, StoredDetailsFillTheBoxesAndAreKept) {
    Change([](CreateDatabaseDialog& dialog) {
        EXPECT_EQ(dialog.TxtCompanyName.Text(), "Veltrane");
        EXPECT_EQ(dialog.TxtCompanyAddress.Text(), "14 Canal Road");
        EXPECT_EQ(dialog.TxtCompanyPhone.Text(), "044");
        EXPECT_EQ(dialog.TxtCompanyEmail.Text(), "");
        dialog.TxtCompanyEmail.SetText("new@v.example");
    });
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(Stored("CompanyAddress"), "14 Canal Road");
    EXPECT_EQ(Stored("CompanyEmail"), "new@v.example");
}

TEST_F(SetupOnServerWithParticulars, ChangedDetailsAreWrittenAfterYes) {
    BoxAnswers answers;
    answers.Expect(Replace("\r\nCompany name: \"Veltrane\" becomes \"Brellix\"\r\n"
                           "Phone: \"044\" becomes \"\""),
                   BoxAnswer::Yes);
    Change([](CreateDatabaseDialog& dialog) {
        dialog.TxtCompanyName.SetText("Brellix");
        dialog.TxtCompanyPhone.SetText("");
    });
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(Stored("CompanyName"), "Brellix");
    EXPECT_EQ(Stored("CompanyAddress"), "14 Canal Road");
    EXPECT_EQ(Stored("CompanyPhone"), "");
    EXPECT_EQ(StationFile::Read(folder.File("Station.ini")).CompanyNames[1], "Brellix");
}

TEST_F(SetupOnServerWithParticulars, StoredDetailsAreShownAgainAfterNo) {
    BoxAnswers answers;
    answers.Expect(Replace("\r\nAddress: \"14 Canal Road\" becomes \"Mall Road\""), BoxAnswer::No);
    Change([](CreateDatabaseDialog& dialog) { dialog.TxtCompanyAddress.SetText("Mall Road"); },
           [](CreateDatabaseDialog& dialog) {
               EXPECT_EQ(dialog.TxtCompanyAddress.Text(), "14 Canal Road");
               EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtCompanyAddress);
               EXPECT_TRUE(dialog.IsLoaded());
               ScreenDriver(dialog).Press(Qt::Key_Escape);
           });
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(Stored("CompanyAddress"), "14 Canal Road");
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "0");
}

TEST_F(SetupOnServerWithParticulars, DetailsOfAnotherServerReplaceTheFirstOnes) {
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
        [&](Screen& screen, ScreenDriver& driver) {
            CreateDatabaseDialog& dialog = DialogOf(screen);
            dialog.TxtCompanyPhone.SetText("typed");
            Owner().Execute("Update Project_Registry Set value = 'other'");
            {
                const VisitModal server([&](Screen& again) {
                    ScreenDriver(again).Press(Qt::CTRL | Qt::Key_Return);
                    EXPECT_TRUE(WaitFor([&] { return !again.IsLoaded(); }));
                });
                driver.Press(Qt::ALT | Qt::Key_V);
            }
            EXPECT_EQ(dialog.TxtCompanyAddress.Text(), "other");
            EXPECT_EQ(dialog.TxtCompanyPhone.Text(), "typed");
            driver.Press(Qt::Key_Escape);
        });
}

TEST_F(SetupOnServer, RejectedRowsAreNamedAndTheSetUpContinues) {
    Owner().Execute("Create Table Project_Registry (registrykey nvarchar(40) Not Null Primary Key, "
                    "value nvarchar(100) Null, Branch int Not Null)");
    Owner().Execute("Insert Into Project_Registry Values ('CompanyName', 'Veltrane', 1)");
    BoxAnswers answers;
    answers.Expect({.text = "The database is ready, but these rows could not be added:\r\n\r\n"
                            "Project_Registry: CompanyAddress\r\nProject_Registry: CompanyPhone"
                            "\r\nProject_Registry: CompanyEmail\r\n\r\nTheir tables have other "
                            "required columns, or shorter ones. Ask the person who maintains the "
                            "database to add the rows.",
                    .title = "Set up the station",
                    .icon = BoxIcon::Exclamation,
                    .buttons = BoxButtons::Ok},
                   BoxAnswer::Ok);
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
        [&](Screen& screen, ScreenDriver& driver) {
            auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
            dialog.TxtCompanyAddress.SetFocus();
            for (const char* text :
                 {"14 Canal Road", "044", "g@v.example", "nadia", "grain", "grain"})
                driver.Type(text).Press(Qt::Key_Return);
            driver.Press(Qt::Key_Return);
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
        });
    EXPECT_TRUE(succeeded);
    EXPECT_TRUE(folder.Has("Config.ini"));
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "1");
}

TEST_F(SetupOnServer, CompleteDatabaseIsNotUsedAfterNo) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::No);
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
        [](Screen& screen, ScreenDriver& driver) {
            const auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
            EXPECT_TRUE(dialog.OptThisComputer.Value());
            driver.Press(Qt::Key_Escape);
        });
    EXPECT_FALSE(succeeded);
    EXPECT_FALSE(folder.Has("Config.ini"));
}

TEST_F(SetupOnServer, StationSignInGetsOnlyTheOperatorRole) {
    const ServerLogin gate(Owner(), oddPassword);
    SqlServerTarget target = Target();
    target.userName = gate.name;
    target.password = oddPassword;
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            dialog.Offer(target, OwnersSignIn());
            driver.Press(Qt::ALT | Qt::Key_T);
            EXPECT_EQ(dialog.Answer(),
                      "It works. The database has no station tables yet; the set-up will create "
                      "them. The database does not know the station's sign-in yet; the set-up adds "
                      "it with the role StationOperator.");
            driver.Press(Qt::Key_Return);
        },
        [&](Screen& screen, ScreenDriver& driver) {
            FillIn(driver);
            driver.Press(Qt::Key_Return);
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
        });
    EXPECT_TRUE(succeeded);
    const std::string fragment =
        Fragment(Part("Database"), gate.name, "{" + std::string(oddPassword) + "}");
    EXPECT_EQ(folder.Read("Config.ini"), "\"" + fragment + "\"\n");
    EXPECT_EQ(folder.Read("Config.ini").find(Part("PWD")), std::string::npos)
        << "the owner's password is not stored";
    {
        const VisitModal visit(SignInAs("nadia", "grain"));
        Main();
    }
    ASSERT_NE(TheDesktop, nullptr);
    EXPECT_EQ(Con->Execute("Select IS_ROLEMEMBER('StationOperator')").Fields(0).Number(), 1);
    EXPECT_NE(DatabaseFailureOf([] { Con->Execute("Delete From StationUsers"); }), "");
    EXPECT_NE(DatabaseFailureOf([] { Con->Execute("Create Table dbo.Mine (Id int)"); }), "");
    TheDesktop.reset();
    ReleaseServices();
    Con.reset();
}

// ---- failures ----

TEST_F(SetupOnServer, FailedConnectionIsExplainedAndNotAccepted) {
    const ServerLogin gate(Owner(), "Weigh_2026");
    struct Case {
        std::function<void(SqlServerTarget&)> change;
        std::string answer;
    };
    const Case cases[] = {
        {[](SqlServerTarget& target) { target.password = "wrong"; },
         "The server refuses the sign-in: the name or the password is wrong.\n"},
        {[](SqlServerTarget& target) { target.database = "Account1_nobody"; },
         "The server answers, but there is no database \"Account1_nobody\", or it does not know "
         "this sign-in. The owner's sign-in, below, can change that.\n"},
        {[&](SqlServerTarget& target) {
             target.userName = gate.name;
             target.password = "Weigh_2026";
         },
         "The server answers, but there is no database \"" + Part("Database") +
             "\", or it does not know this sign-in. The owner's sign-in, below, can change "
             "that.\n"},
        {[](SqlServerTarget& target) { target.port = "9"; }, "No SQL Server answers at "},
    };
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            for (const Case& each : cases) {
                SqlServerTarget target = Target();
                each.change(target);
                dialog.Offer(target, {});
                driver.Press(Qt::CTRL | Qt::Key_Return);
                EXPECT_EQ(dialog.Answer().substr(0, each.answer.size()), each.answer);
                EXPECT_TRUE(dialog.IsLoaded());
            }
            driver.Press(Qt::Key_Escape);
        },
        [](Screen&, ScreenDriver& driver) { driver.Press(Qt::Key_Escape); });
    EXPECT_FALSE(succeeded);
    EXPECT_FALSE(folder.Has("Config.ini"));
}

TEST_F(SetupOnServer, OwnerIsRequestedIfTheSignInMayNotCreateTables) {
    const ServerLogin gate(Owner(), "Weigh_2026");
    Owner().Execute("CREATE USER [" + gate.name + "] FOR LOGIN [" + gate.name + "]");
    SqlServerTarget target = Target();
    target.userName = gate.name;
    target.password = "Weigh_2026";
    const TryOut tried = TrySqlServer(target, {});
    EXPECT_FALSE(tried.works);
    EXPECT_EQ(
        tried.answer.find("The sign-in works, but these tables or functions are missing, or it "
                          "has no right to use them, and it may not create them: Arrivals, "
                          "ArrivalsBody, "),
        0U)
        << tried.answer;
    EXPECT_TRUE(TrySqlServer(target, OwnersSignIn()).works);
}

TEST_F(SetupOnServer, WrongStationSignInIsReportedDespiteACorrectOwner) {
    SqlServerTarget target = Target();
    target.userName = "nobody_" + Part("Database");
    const TryOut tried = TrySqlServer(target, OwnersSignIn());
    EXPECT_FALSE(tried.works);
    EXPECT_EQ(tried.answer.find("The owner's sign-in works, but not the station's.\n"), 0U)
        << tried.answer;
}

TEST_F(SetupOnServer, MissingTablesAreNamed) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    Owner().Execute("DROP FUNCTION dbo.FunGetCommodity");
    Owner().Execute("DROP TABLE dbo.StationSchema");
    EXPECT_EQ(TrySqlServer(Target(), {}).answer,
              "It works. The set-up will create what is missing and change nothing else: "
              "StationSchema, FunGetCommodity.");
    LongWork work;
    const NewDatabase particulars = Particulars();
    EXPECT_TRUE(PrepareSqlServerDatabase(Target(), {}, &particulars, work));
    EXPECT_TRUE(TrySqlServer(Target(), {}).contents.isComplete);
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "1");
}

// ---- cancelling ----

TEST_F(SetupOnServer, CancelledSetUpCanBeRepeated) {
    Connection other;
    other.Open("Driver=SQL Server;" + Fragment());
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
        [&](Screen& screen, ScreenDriver& driver) {
            FillIn(driver);
            // Another session is creating a table with this name, so that the set-up waits.
            other.BeginTrans();
            other.Execute("CREATE TABLE dbo.Commodities (Id int)");
            {
                const VisitModal wait([&](Screen& waiting) {
                    EXPECT_EQ(waiting.Name(), "WaitingScreen");
                    ScreenDriver(waiting).Press(Qt::Key_Escape);
                    EXPECT_TRUE(waiting.IsLoaded());
                    other.RollbackTrans();
                    EXPECT_TRUE(
                        WaitFor([&] { return !waiting.IsLoaded(); }, std::chrono::seconds(60)));
                });
                driver.Press(Qt::CTRL | Qt::Key_Return);
            }
            EXPECT_TRUE(screen.IsLoaded());
            EXPECT_FALSE(folder.Has("Config.ini"));
            EXPECT_FALSE(folder.Has("Station.ini"));
            EXPECT_FALSE(TrySqlServer(Target(), {}).contents.isComplete);
            driver.Press(Qt::CTRL | Qt::Key_Return);
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
        });
    EXPECT_TRUE(succeeded);
    EXPECT_TRUE(TrySqlServer(Target(), {}).contents.isComplete);
}

TEST_F(SetupOnServer, ServerErrorDuringTheSetUpWritesNothing) {
    Owner().Execute("CREATE VIEW dbo.Arrivals AS SELECT 1 AS ArrivalID");
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Target()); },
        [&](Screen& screen, ScreenDriver& driver) {
            FillIn(driver);
            const BoxNotes notes;
            driver.Press(Qt::CTRL | Qt::Key_Return);
            ASSERT_EQ(notes.boxes.size(), 1U);
            EXPECT_EQ(notes.boxes[0].title, "Database");
            EXPECT_TRUE(screen.IsLoaded());
            EXPECT_EQ(dynamic_cast<CreateDatabaseDialog&>(screen).TxtUserName.Text(), "nadia");
            EXPECT_FALSE(folder.Has("Config.ini"));
            driver.Press(Qt::Key_Escape);
        });
    EXPECT_FALSE(succeeded);
}

} // namespace
} // namespace Quillane
