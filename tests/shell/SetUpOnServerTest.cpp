// The set-up dialog on a SQL Server, from the first key to the first sign-in.

#include "SignIn.h"
#include "StationOnServer.h"

#include "platform/forms/dialogs/WaitingScreen.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/DatabaseSetup.h"
#include "setup/SqlServerDialog.h"
#include "setup/SqlServerSchema.h"
#include "setup/SqlServerSetUp.h"
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
    return {.companyName = "Veltrane",
            .companyAddress = "14 Canal Road",
            .companyPhone = "044",
            .companyEmail = "g@v.example",
            .userName = "nadia",
            .password = "grain",
            .hashCost = HashCost::Minimum};
}

} // namespace

class SetUpOnServer : public StationOnServer {
protected:
    SqlServerPlace Place() const {
        return {.server = Part("Server"),
                .port = Part("Port"),
                .database = Part("Database"),
                .userName = Part("UID"),
                .password = Part("PWD")};
    }
    OwnerSignIn OwnersSignIn() const { return {.userName = Part("UID"), .password = Part("PWD")}; }

    /// Goes through the set-up dialog up to the server's, works that, and goes on in the first.
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

    /// Takes the server: no further dialog comes, or the set-up's own goes on.
    void Take(SqlServerDialog& dialog, ScreenDriver& driver, const SqlServerPlace& place,
              const OwnerSignIn& owner = {}) {
        dialog.Offer(place, owner);
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
                        "Use it as it is? Nothing in it is changed.",
                .title = "Set up the station",
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo};
    }

    bool succeeded = false;
};

// ---- the way through ----

TEST_F(SetUpOnServer, MakesAnEmptyDatabaseAStationsAndStartsOnIt) {
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            dialog.Offer(Place(), {});
            driver.Press(Qt::ALT | Qt::Key_T);
            EXPECT_EQ(dialog.Answer(), "It works. The database holds nothing of a station's yet; "
                                       "the set-up makes all of it.");
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

TEST_F(SetUpOnServer, UsesACompleteDatabaseAsItIsForTheNextStation) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::Yes);
    SetUpStation([&](SqlServerDialog& dialog, ScreenDriver& driver) {
        dialog.Offer(Place(), {});
        driver.Press(Qt::ALT | Qt::Key_T);
        EXPECT_EQ(dialog.Answer(),
                  "It works. There is a station's database: Veltrane; 0 arrivals, 1 user.");
        driver.Press(Qt::Key_Return);
    });
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(folder.Read("Config.ini"), Fragment() + "\n");
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane");
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "1");
}

TEST_F(SetUpOnServer, LeavesACompleteDatabaseWhereTheUserSaysNo) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::No);
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Place()); },
        [](Screen& screen, ScreenDriver& driver) {
            const auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
            EXPECT_TRUE(dialog.OptThisComputer.Value());
            driver.Press(Qt::Key_Escape);
        });
    EXPECT_FALSE(succeeded);
    EXPECT_FALSE(folder.Has("Config.ini"));
}

TEST_F(SetUpOnServer, AdmitsTheStationsSignInWithTheOperatorsRoleAlone) {
    const ServerLogin gate(Owner(), oddPassword);
    SqlServerPlace place = Place();
    place.userName = gate.name;
    place.password = oddPassword;
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            dialog.Offer(place, OwnersSignIn());
            driver.Press(Qt::ALT | Qt::Key_T);
            EXPECT_EQ(dialog.Answer(),
                      "It works. The database holds nothing of a station's yet; the set-up makes "
                      "all of it. The station's own sign-in is not known to the database yet; the "
                      "set-up adds it with the role StationOperator.");
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
        << "the owner's password is not kept";
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

// ---- what stands in the way ----

TEST_F(SetUpOnServer, AnswersPlainlyAndTakesNothingThatDoesNotWork) {
    const ServerLogin gate(Owner(), "Weigh_2026");
    struct Case {
        std::function<void(SqlServerPlace&)> change;
        std::string answer;
    };
    const Case cases[] = {
        {[](SqlServerPlace& place) { place.password = "wrong"; },
         "The server refuses the sign-in: the name or the password is wrong.\n"},
        {[](SqlServerPlace& place) { place.database = "Account1_nobody"; },
         "The server answers, but there is no database \"Account1_nobody\", or it does not know "
         "this sign-in; the owner's, below, can change that.\n"},
        {[&](SqlServerPlace& place) {
             place.userName = gate.name;
             place.password = "Weigh_2026";
         },
         "The server answers, but there is no database \"" + Part("Database") +
             "\", or it does not know this sign-in; the owner's, below, can change that.\n"},
        {[](SqlServerPlace& place) { place.port = "9"; }, "No SQL Server answers at "},
    };
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) {
            for (const Case& each : cases) {
                SqlServerPlace place = Place();
                each.change(place);
                dialog.Offer(place, {});
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

TEST_F(SetUpOnServer, AsksForTheOwnerWhereTheSignInMayNotMakeWhatIsMissing) {
    const ServerLogin gate(Owner(), "Weigh_2026");
    Owner().Execute("CREATE USER [" + gate.name + "] FOR LOGIN [" + gate.name + "]");
    SqlServerPlace place = Place();
    place.userName = gate.name;
    place.password = "Weigh_2026";
    const TryOut tried = TrySqlServer(place, {});
    EXPECT_FALSE(tried.works);
    EXPECT_EQ(tried.answer.find("The sign-in works, but these are missing or closed to it, and it "
                                "may not make them: Arrivals, ArrivalsBody, "),
              0U)
        << tried.answer;
    EXPECT_TRUE(TrySqlServer(place, OwnersSignIn()).works);
}

TEST_F(SetUpOnServer, TellsOfAStationsSignInThatIsWrongBesideARightOwner) {
    SqlServerPlace place = Place();
    place.userName = "nobody_" + Part("Database");
    const TryOut tried = TrySqlServer(place, OwnersSignIn());
    EXPECT_FALSE(tried.works);
    EXPECT_EQ(tried.answer.find("The owner's sign-in works, but not the station's.\n"), 0U)
        << tried.answer;
}

TEST_F(SetUpOnServer, NamesWhatIsMissingOfAnIncompleteDatabase) {
    SetUpSqlServerDatabase(Owner(), Particulars());
    Owner().Execute("DROP FUNCTION dbo.FunGetCommodity");
    Owner().Execute("DROP TABLE dbo.StationSchema");
    EXPECT_EQ(TrySqlServer(Place(), {}).answer,
              "It works. The set-up makes what is missing and changes nothing else: "
              "StationSchema, FunGetCommodity.");
    LongWork work;
    const NewDatabase particulars = Particulars();
    EXPECT_TRUE(MakeSqlServerDatabaseReady(Place(), {}, &particulars, work));
    EXPECT_TRUE(TrySqlServer(Place(), {}).contents.isComplete);
    EXPECT_EQ(Ask("Select Count(*) From StationUsers"), "1");
}

// ---- breaking off ----

TEST_F(SetUpOnServer, IsBrokenOffWithoutHarmAndGoesOnWithTheNextTry) {
    Connection other;
    other.Open("Driver=SQL Server;" + Fragment());
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Place()); },
        [&](Screen& screen, ScreenDriver& driver) {
            FillIn(driver);
            // Someone else is making a table of that name, so that the set-up waits.
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
            EXPECT_FALSE(TrySqlServer(Place(), {}).contents.isComplete);
            driver.Press(Qt::CTRL | Qt::Key_Return);
            EXPECT_TRUE(WaitFor([&] { return !screen.IsLoaded(); }, std::chrono::seconds(60)));
        });
    EXPECT_TRUE(succeeded);
    EXPECT_TRUE(TrySqlServer(Place(), {}).contents.isComplete);
}

TEST_F(SetUpOnServer, WritesNothingWhereTheServerRefusesInTheMidst) {
    Owner().Execute("CREATE VIEW dbo.Arrivals AS SELECT 1 AS ArrivalID");
    SetUpStation(
        [&](SqlServerDialog& dialog, ScreenDriver& driver) { Take(dialog, driver, Place()); },
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

} // namespace Quillane
