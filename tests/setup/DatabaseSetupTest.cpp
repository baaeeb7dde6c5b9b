#include "setup/DatabaseSetup.h"

#include "station/SampleDatabase.h"

#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SchemaMessages.h"
#include "setup/StationSetup.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

namespace Quillane {

using Testing::BoxAnswers;
using Testing::ScreenDriver;
using Testing::VisitModal;

namespace {

constexpr const char* Title = "Set up the station";

Box Told(const std::string& text) {
    return {.text = text, .title = Title, .icon = BoxIcon::Exclamation, .buttons = BoxButtons::Ok};
}

// ---- the dialog ----

class CreateDatabase : public testing::Test {
protected:
    void SetUp() override {
        TheStation() = StationFile();
        SetStationFolder(folder.path);
    }
    void TearDown() override {
        SetStationFolder("");
        TheStation() = StationFile();
    }

    std::string File() const { return folder.File("Account1.db"); }

    Box UseExisting() const {
        return {.text = "There is already a database here:\r\n" + File() +
                        "\r\n(Veltrane Flour Mills; 12 arrivals, 2 users)\r\n\r\n"
                        "Use it without changes?",
                .title = Title,
                .icon = BoxIcon::Question,
                .buttons = BoxButtons::YesNo};
    }

    static void FillIn(ScreenDriver& driver) {
        for (const char* text :
             {"Veltrane", "14 Canal Road", "044", "g@v.example", "nadia", "grain", "grain"})
            driver.Type(text).Press(Qt::Key_Return);
    }

    FreshFolder folder;
    DatabaseSetupObject setup;
};

TEST_F(CreateDatabase, SetsTheStationUpByKeys) {
    const VisitModal visit([](Screen& screen) {
        ScreenDriver driver(screen);
        EXPECT_EQ(screen.ActiveControlName(), "TxtCompanyName");
        FillIn(driver);
        EXPECT_EQ(screen.ActiveControlName(), "ChkSampleRows");
        driver.Press(Qt::Key_Space).Press(Qt::Key_Return);
        EXPECT_FALSE(screen.IsLoaded());
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
    EXPECT_EQ(folder.Read("Config.ini"), "Server=(embedded);Database=Account1\n");
    const EmbeddedDatabase made = LookAtEmbeddedDatabase(File());
    EXPECT_EQ(made.companyName, "Veltrane");
    EXPECT_EQ(made.arrivals, 12);
    EXPECT_EQ(made.users, 2);
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane");
}

TEST_F(CreateDatabase, MakesNoSampleRowsUnlessWanted) {
    const VisitModal visit([](Screen& screen) {
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_EQ(LookAtEmbeddedDatabase(File()).arrivals, 0);
    EXPECT_EQ(LookAtEmbeddedDatabase(File()).users, 1);
}

TEST_F(CreateDatabase, CancelledSetUpLeavesNoFile) {
    const VisitModal visit([](Screen& screen) {
        ScreenDriver driver(screen);
        driver.Type("Veltrane").Press(Qt::Key_Escape);
    });
    setup.CreateDatabase();
    EXPECT_FALSE(setup.Succeeded());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path));
}

TEST_F(CreateDatabase, RefusesInvalidEntriesAndKeepsThem) {
    struct Case {
        TextBox CreateDatabaseDialog::*box;
        const char* bad;
        const char* good;
        const char* reason;
    };
    const Case cases[] = {
        {&CreateDatabaseDialog::TxtCompanyName, "  ", "Veltrane",
         "Please give the company's name."},
        {&CreateDatabaseDialog::TxtCompanyName, "Miller's", "Veltrane",
         "The company's name cannot contain an apostrophe. Enter it without one."},
        {&CreateDatabaseDialog::TxtCompanyEmail, "gate", "",
         "This is not a valid e-mail address. You can leave it empty."},
        {&CreateDatabaseDialog::TxtCompanyEmail, "@x", "g@v.example",
         "This is not a valid e-mail address. You can leave it empty."},
        {&CreateDatabaseDialog::TxtUserName, " ", "nadia", "Please give the first user's name."},
        {&CreateDatabaseDialog::TxtPassword, "", "grain", "Please give the first user a password."},
        {&CreateDatabaseDialog::TxtPasswordAgain, "Grain", "grain",
         "The two passwords differ. Please type the password again."},
    };
    const VisitModal visit([&](Screen& screen) {
        auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
        ScreenDriver driver(screen);
        FillIn(driver);
        for (const Case& each : cases) {
            TextBox& box = dialog.*each.box;
            box.SetText(each.bad);
            BoxAnswers answers;
            answers.Expect(Told(each.reason));
            driver.Press(Qt::CTRL | Qt::Key_Return);
            EXPECT_EQ(dialog.ActiveControl(), &box) << each.reason;
            EXPECT_EQ(box.Text(), each.bad);
            EXPECT_EQ(dialog.TxtCompanyAddress.Text(), "14 Canal Road");
            box.SetText(each.good);
        }
        EXPECT_TRUE(std::filesystem::is_empty(folder.path));
        driver.Press(Qt::CTRL | Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
}

TEST_F(CreateDatabase, OffersTheStationsCompanyName) {
    TheStation().CompanyNames[1] = "Brellix";
    const VisitModal visit([](Screen& screen) {
        EXPECT_EQ(dynamic_cast<CreateDatabaseDialog&>(screen).TxtCompanyName.Text(), "Brellix");
        ScreenDriver(screen).Press(Qt::Key_Escape);
    });
    setup.CreateDatabase();
}

TEST_F(CreateDatabase, UsesAnExistingDatabaseAfterYes) {
    CreateEmbeddedDatabase(File(), SampleParticulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::Yes);
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
    EXPECT_TRUE(folder.Has("Config.ini"));
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane Flour Mills");
    EXPECT_EQ(LookAtEmbeddedDatabase(File()).arrivals, 12);
}

TEST_F(CreateDatabase, DoesNotChangeAnExistingDatabaseAfterNo) {
    CreateEmbeddedDatabase(File(), SampleParticulars());
    BoxAnswers answers;
    answers.Expect(UseExisting(), BoxAnswer::No);
    answers.Expect(UseExisting(), BoxAnswer::No);
    const VisitModal visit([](Screen& screen) {
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
        EXPECT_TRUE(screen.IsLoaded());
        driver.Press(Qt::Key_Escape);
    });
    setup.CreateDatabase();
    EXPECT_FALSE(setup.Succeeded());
    EXPECT_FALSE(folder.Has("Config.ini"));
    EXPECT_EQ(LookAtEmbeddedDatabase(File()).companyName, "Veltrane Flour Mills");
}

TEST_F(CreateDatabase, ReportsAFileThatIsNotADatabase) {
    folder.Write("Account1.db", "a letter, much longer than the head of a database file would be, "
                                "so that it cannot be the beginning of one");
    BoxAnswers answers;
    answers.Expect(
        Told("There is already a file with the name of the new database:\r\n" + File() +
             "\r\nIt is not a database.\r\n\r\nIt was not changed. Move it to another folder "
             "and try again."));
    const VisitModal visit([this](Screen& screen) {
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
        EXPECT_TRUE(screen.IsLoaded());
        std::filesystem::remove(File());
        driver.Press(Qt::CTRL | Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
}

TEST_F(CreateDatabase, ReportsAFolderThatCannotBeWrittenBeforeTheDialog) {
    SetStationFolder(folder.path + "/gone");
    BoxAnswers answers;
    answers.Expect(Testing::Critical(
        "Nothing can be stored in the station folder " + folder.path +
            "/gone: No such file or directory.\r\nThe station cannot be set up there. Please give "
            "this user the right to write in the folder, free some space on the disk, or name "
            "another "
            "folder with the option --station.",
        "Quillane"));
    setup.CreateDatabase();
    EXPECT_FALSE(setup.Succeeded());
}

TEST_F(CreateDatabase, ReportsAFolderThatCannotBeWrittenAnyMoreAndKeepsTheEntries) {
    const std::string gone = folder.path + "/گیٹ north";
    std::filesystem::create_directory(gone);
    SetStationFolder(gone);
    BoxAnswers answers;
    answers.Expect(Testing::Critical("unable to open database file: " + gone + "/Account1.db.new",
                                     "Database"));
    const VisitModal visit([&gone](Screen& screen) {
        std::filesystem::remove(gone);
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
        EXPECT_EQ(dynamic_cast<CreateDatabaseDialog&>(screen).TxtUserName.Text(), "nadia");
        std::filesystem::create_directory(gone);
        driver.Press(Qt::CTRL | Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
    EXPECT_TRUE(std::filesystem::exists(gone + "/Account1.db"));
}

TEST_F(CreateDatabase, LeavesNoFileOfTheFolderCheck) {
    const VisitModal visit([this](Screen& screen) {
        EXPECT_TRUE(std::filesystem::is_empty(folder.path));
        ScreenDriver(screen).Press(Qt::Key_Escape);
    });
    setup.CreateDatabase();
}

TEST_F(CreateDatabase, NamesPortsThatCannotBeUsed) {
    folder.Write("line", "");
    TheStation().Ports = {{1, folder.File("line")}, {2, "/dev/no-such-line"}, {7, "/dev/none"}};
    const VisitModal visit([](Screen& screen) {
        EXPECT_EQ(dynamic_cast<CreateDatabaseDialog&>(screen).Notice(),
                  "Port 2 (/dev/no-such-line) cannot be used yet: the device does not exist. Check "
                  "that the indicator's adapter is plugged in.\n"
                  "Port 7 (/dev/none) cannot be used yet: the device does not exist. Check that "
                  "the indicator's adapter is plugged in.");
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded()) << "a station without its indicator can be set up";
}

TEST_F(CreateDatabase, ShowsNoNoticeForUsablePorts) {
    folder.Write("line", "");
    TheStation().Ports[1] = folder.File("line");
    const VisitModal visit([](Screen& screen) {
        EXPECT_EQ(dynamic_cast<CreateDatabaseDialog&>(screen).Notice(), "");
        ScreenDriver(screen).Press(Qt::Key_Escape);
    });
    setup.CreateDatabase();
}

TEST_F(CreateDatabase, RefusesATextThatIsTooLong) {
    struct Case {
        TextBox CreateDatabaseDialog::*box;
        std::string name;
        int longest;
    };
    const Case cases[] = {
        {&CreateDatabaseDialog::TxtCompanyName, "Company name", 60},
        {&CreateDatabaseDialog::TxtCompanyAddress, "Company address", 120},
        {&CreateDatabaseDialog::TxtCompanyPhone, "Company phone", 40},
        {&CreateDatabaseDialog::TxtUserName, "User name", 40},
    };
    const VisitModal visit([&](Screen& screen) {
        auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
        ScreenDriver driver(screen);
        FillIn(driver);
        for (const Case& each : cases) {
            TextBox& box = dialog.*each.box;
            const std::string longest(static_cast<std::size_t>(each.longest), 'a');
            box.SetFocus();
            box.SetText("");
            driver.Type(longest + "b");
            EXPECT_EQ(box.Text(), longest + "b");
            BoxAnswers answers;
            answers.Expect(Told("\"" + each.name + "\" can have at most " +
                                std::to_string(each.longest) + " characters; this one has " +
                                std::to_string(each.longest + 1) + ". Please shorten it."));
            driver.Press(Qt::CTRL | Qt::Key_Return);
            EXPECT_EQ(dialog.ActiveControl(), &box);
            box.SetText(longest);
        }
        driver.Press(Qt::CTRL | Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
    EXPECT_EQ(LookAtEmbeddedDatabase(File()).companyName, std::string(60, 'a'));
}

TEST_F(CreateDatabase, CompletesAnInterruptedSetUp) {
    folder.Write("Account1.db.new", "half a database");
    folder.Write("Station.ini", "[CompanyNames]\n1=Veltrane\n");
    TheStation() = StationFile::Read(folder.File("Station.ini"));
    const VisitModal visit([](Screen& screen) {
        auto& dialog = dynamic_cast<CreateDatabaseDialog&>(screen);
        dialog.TxtCompanyName.SetText("");
        ScreenDriver driver(screen);
        FillIn(driver);
        driver.Press(Qt::Key_Return);
    });
    setup.CreateDatabase();
    EXPECT_TRUE(setup.Succeeded());
}

// ---- the versions ----

class DatabaseVersions : public testing::Test {
protected:
    void SetUp() override { setup.SetConnection(database.connection); }
    void Run(const char* statement) { database.connection.Execute(statement); }
    Box Warned(const std::string& text) {
        return {.text = text,
                .title = "Quillane",
                .icon = BoxIcon::Exclamation,
                .buttons = BoxButtons::Ok};
    }

    SampleDatabase database;
    DatabaseSetupObject setup;
};

TEST_F(DatabaseVersions, AgreeInANewDatabase) {
    EXPECT_EQ(setup.DatabaseVersion(), setup.ProgramVersion());
}

TEST_F(DatabaseVersions, AnOlderDatabaseIsCopiedAndUpgraded) {
    SKIP_ON_SQL_SERVER("only a file is copied; SqlServerUpgradeTest tests the steps there");
    Run("Drop Table StationSchema");
    EXPECT_EQ(setup.DatabaseVersion(), 0);
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), setup.ProgramVersion());
    const EmbeddedDatabase copy =
        LookAtEmbeddedDatabase(database.folder.File("Account1-before-2.db"));
    EXPECT_EQ(copy.kind, EmbeddedDatabase::Kind::Foreign) << "without the table of the version";
}

TEST_F(DatabaseVersions, ANewerDatabaseIsReportedAndNotChanged) {
    Run("Update StationSchema Set SchemaVersion = 99");
    BoxAnswers answers;
    answers.Expect(Warned(NewerSchemaText(99)));
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), 99);
    EXPECT_FALSE(database.folder.Has("Account1-before-2.db"));
}

TEST_F(DatabaseVersions, AnUnreadableVersionIsReportedAndTheDatabaseNotChanged) {
    SKIP_ON_SQL_SERVER("its column accepts only numbers");
    Run("Update StationSchema Set SchemaVersion = 'one'");
    BoxAnswers answers;
    answers.Expect(Warned(UnreadableSchemaText() + " Ask the person who maintains the database."));
    setup.UpgradeDatabase();
    EXPECT_EQ(database.Ask("Select SchemaVersion From StationSchema").Text(), "one");
}

TEST_F(DatabaseVersions, AFailedUpgradeIsReportedAndLosesNothing) {
    SKIP_ON_SQL_SERVER("SqlServerUpgradeTest tests the steps there");
    Run("Drop Table StationSchema");
    Run("Drop Table Project_Registry");
    Run("Create View Project_Registry As Select 1 As registrykey, 2 As value");
    BoxAnswers answers;
    answers.Expect(
        Testing::Critical("cannot modify Project_Registry because it is a view", "Database"));
    setup.UpgradeDatabase();
    EXPECT_EQ(setup.DatabaseVersion(), 0);
    EXPECT_EQ(database.Ask("Select Count(*) From Arrivals").Number(), 12);
}

} // namespace
} // namespace Quillane
