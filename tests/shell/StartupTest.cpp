#include "shell/Startup.h"

#include "SignIn.h"
#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/dialogs/LockScreen.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationFolder.h"
#include "platform/runtime/Failure.h"
#include "setup/DatabaseSetup.h"
#include "setup/EmbeddedSchema.h"
#include "shell/Desktop.h"
#include "signin/UserLogin.h"
#include "station/StationDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QTimer>

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>

namespace Quillane {
namespace {

using Testing::Alert;
using Testing::BoxAnswers;
using Testing::Critical;
using Testing::ProcessEnd;
using Testing::ScreenDriver;
using Testing::VisitModal;
using Testing::WaitFor;

/// A station folder with a database and a Config.ini that names it.
class StartUp : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("XDG_CONFIG_HOME", File("settings").c_str(), 1);
        SetStationFolder(Folder().path);
        TheStation().CompanyNames[1] = "Veltrane Mills";
    }

    void TearDown() override {
        TheDesktop.reset();
        ReleaseServices();
        Con.reset();
        TheStation() = StationFile();
        SetStationFolder("");
        ::unsetenv("XDG_CONFIG_HOME");
        database_.reset();
    }

    std::string File(const std::string& name) const { return Folder().File(name); }
    void Write(const std::string& name, const std::string& text) const {
        Folder().Write(name, text);
    }

    /// Uses the engine of the test run.
    void MakeDatabase() {
        database_.emplace(ParticularsOf("Earlier", "ali", "wheat"));
        SetStationFolder(Folder().path);
        Write("Config.ini", database_->ConfigText());
    }
    /// Uses an embedded database with this name, for every engine of the test run.
    void MakeFile(const std::string& name) {
        CreateEmbeddedDatabase(File(name + ".db"), ParticularsOf("Earlier", "ali", "wheat"));
        Write("Config.ini", "Server=(embedded);Database=" + name);
    }

    /// Runs a statement in another session.
    void Change(const std::string& statement) const { database_->Run(statement); }

    /// Starts; expects the box of the runtime with this text, and the end of the process.
    void ExpectToEndWith(const std::string& text) {
        boxes.Expect(Critical(text, "Quillane"));
        RunEvent(Main);
        EXPECT_EQ(end.Codes(), std::vector<int>{1});
        EXPECT_EQ(TheDesktop, nullptr);
    }

    static std::string StoredName() {
        return Con->Execute("Select value From Project_Registry Where registrykey ='CompanyName'")
            .Fields(0)
            .Text();
    }

    BoxAnswers boxes;
    ProcessEnd end;

private:
    const FreshFolder& Folder() const { return database_ ? database_->folder : withoutDatabase_; }

    FreshFolder withoutDatabase_;
    std::optional<StationDatabase> database_;
};

// ---- a successful start ----

TEST_F(StartUp, UserSignsInAndTheStartScreenIsShown) {
    MakeDatabase();
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(Con->State(), 1);
    EXPECT_EQ(Con->ConnectionTimeout, 120);
    EXPECT_EQ(Con->CursorLocation, 3);
    EXPECT_EQ(UserLogin->UserLevel(), 1);
    ASSERT_NE(TheDesktop, nullptr);
    EXPECT_TRUE(TheDesktop->isVisible());
    EXPECT_FALSE(TheDesktop->isModal());
    EXPECT_TRUE(end.Codes().empty());
}

TEST_F(StartUp, CompanyNameIsWrittenInCapitalsBeforeItIsLoaded) {
    MakeDatabase();
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(StoredName(), "VELTRANE MILLS");
    EXPECT_EQ(CompanyProfile->CompanyTitle(), "VELTRANE MILLS");
}

TEST_F(StartUp, StatementsRunInOrder) {
    MakeDatabase();
    TheStation().AskCompanyName = -1;
    std::vector<std::string> statements;
    // The start creates the connection, so its statements are recorded from the message box on.
    SetBoxPresenter({.message = {}, .input = [&](const InputPrompt& prompt) -> std::string {
                         EXPECT_EQ(prompt.title, "Company Name");
                         EXPECT_EQ(prompt.defaultText, "");
                         EXPECT_EQ(Con->State(), 1);
                         EXPECT_EQ(UserLogin->UserLevel(), 0);
                         Con->StatementObserver = [&](std::string_view text) {
                             statements.emplace_back(text);
                         };
                         return "mill of the north";
                     }});
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    Testing::ForbidUnexpectedBoxes();
    ASSERT_GE(statements.size(), 3U);
    EXPECT_EQ(statements[0], "Update Project_Registry set value ='MILL OF THE NORTH' Where "
                             "registrykey ='CompanyName'");
    const auto place = [&](const char* table) {
        return std::ranges::find_if(statements,
                                    [&](const std::string& text) {
                                        return text.find(std::string("From ") + table) !=
                                               std::string::npos;
                                    }) -
               statements.begin();
    };
    EXPECT_EQ(place("Project_Registry"), 1);
    EXPECT_GT(place("StationUsers"), 1);
    EXPECT_LT(place("StationUsers"), std::ssize(statements));
    EXPECT_EQ(TheStation().CompanyNames[1], "MILL OF THE NORTH");
}

TEST_F(StartUp, CancelledSignInEndsWithoutAMessage) {
    MakeDatabase();
    const VisitModal visit(GiveUp());
    Main();
    EXPECT_EQ(end.Codes(), std::vector<int>{0});
    EXPECT_EQ(TheDesktop, nullptr);
    EXPECT_FALSE(CompanyProfile.Exists());
    EXPECT_FALSE(DatabaseSetup.Exists());
    EXPECT_FALSE(UserLogin.Exists());
}

TEST_F(StartUp, CompanyNumberIsTheEighthCharacterOfTheDatabaseName) {
    MakeFile("Account5");
    TheStation().CompanyNames[5] = "Brellix";
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(StoredName(), "BRELLIX");
}

TEST_F(StartUp, EmptyEntryUsesTheFirstNameAsStored) {
    MakeFile("Account5");
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(StoredName(), "Veltrane Mills");
}

TEST_F(StartUp, StationWithoutANameKeepsTheStoredOne) {
    MakeDatabase();
    TheStation() = StationFile();
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(StoredName(), "EARLIER");
    EXPECT_EQ(TheStation().CompanyNames[1], "Earlier");
}

TEST_F(StartUp, ClientStationStarts) {
    SKIP_ON_SQL_SERVER("a client signs in as anonymous, whom the tests' server need not know");
    MakeDatabase();
    TheStation().StationRole = "Client";
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_NE(TheDesktop, nullptr);
}

TEST_F(StartUp, MissingCompanyRowIsAccepted) {
    MakeDatabase();
    Change("Delete From Project_Registry Where registrykey = 'CompanyName'");
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_EQ(CompanyProfile->CompanyTitle(), "");
    EXPECT_EQ(Con->Execute("Select * From Project_Registry Where registrykey = 'CompanyName'")
                  .RecordCount(),
              0);
    EXPECT_NE(TheDesktop, nullptr);
}

TEST_F(StartUp, NewerDatabaseStartsTheUpgradeToo) {
    MakeDatabase();
    Change("Update StationSchema Set SchemaVersion = 99");
    std::vector<Box> shown;
    SetBoxPresenter({.message =
                         [&](const Box& box) {
                             // The upgrade comes before the company's name is written.
                             EXPECT_EQ(StoredName(), "Earlier");
                             shown.push_back(box);
                             return BoxAnswer::Ok;
                         },
                     .input = {}});
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    Testing::ForbidUnexpectedBoxes();
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_NE(TheDesktop, nullptr);
}

// ---- the file of an embedded database ----

/// Another session that has the write lock of the file.
class HeldLock {
public:
    HeldLock(const std::string& file, const char* statements) {
        EXPECT_EQ(sqlite3_open(file.c_str(), &session_), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(session_, statements, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    ~HeldLock() { sqlite3_close(session_); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

private:
    sqlite3* session_ = nullptr;
};

/// Runs an action in the window that waits for the lock, when it is shown.
class VisitLockScreen {
public:
    explicit VisitLockScreen(std::function<void(LockScreen&)> act) : act_(std::move(act)) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start(1);
    }
    ~VisitLockScreen() { EXPECT_TRUE(tookPlace_) << "the window was not shown"; }
    VisitLockScreen(const VisitLockScreen&) = delete;
    VisitLockScreen& operator=(const VisitLockScreen&) = delete;

private:
    void Look() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* screen = dynamic_cast<LockScreen*>(window); screen && screen->isVisible()) {
                timer_.stop();
                tookPlace_ = true;
                return act_(*screen);
            }
    }

    std::function<void(LockScreen&)> act_;
    QTimer timer_;
    bool tookPlace_ = false;
};

constexpr const char* StationThatSaves = "BEGIN IMMEDIATE";
constexpr const char* ProgramThatHoldsTheFile = "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE";

TEST_F(StartUp, StartContinuesWhenTheLockIsReleased) {
    for (const char* holder : {StationThatSaves, ProgramThatHoldsTheFile}) {
        MakeFile("Account1");
        HeldLock(File("Account1.db"), "PRAGMA journal_mode = WAL");
        auto lock = std::make_unique<HeldLock>(File("Account1.db"), holder);
        const VisitLockScreen wait([&](LockScreen&) { lock.reset(); });
        const VisitModal visit(SignInAs("ali", "wheat"));
        Main();
        EXPECT_EQ(StoredName(), "VELTRANE MILLS");
        EXPECT_NE(TheDesktop, nullptr);
        TheDesktop.reset();
        Con.reset();
        std::filesystem::remove(File("Account1.db"));
    }
}

// The wait for the lock is inside the opening.
TEST_F(StartUp, ConnectionTimeoutIsSetBeforeTheDatabaseIsOpened) {
    MakeFile("Account1");
    HeldLock(File("Account1.db"), "PRAGMA journal_mode = WAL");
    auto lock = std::make_unique<HeldLock>(File("Account1.db"), ProgramThatHoldsTheFile);
    const VisitLockScreen wait([&](LockScreen&) {
        EXPECT_EQ(Con->State(), adStateClosed);
        EXPECT_EQ(Con->ConnectionTimeout, 120);
        lock.reset();
    });
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
}

TEST_F(StartUp, CancelledWaitEndsTheProcess) {
    MakeFile("Account1");
    HeldLock(File("Account1.db"), "PRAGMA journal_mode = WAL");
    const auto cancel = [](LockScreen& window) { ScreenDriver(window).Press(Qt::Key_Escape); };
    {
        const HeldLock lock(File("Account1.db"), ProgramThatHoldsTheFile);
        const VisitLockScreen wait(cancel);
        ExpectToEndWith("The database file " + File("Account1.db") +
                        " is locked by another program.");
    }
    const HeldLock lock(File("Account1.db"), StationThatSaves);
    const VisitLockScreen wait(cancel);
    boxes.Expect(Critical("database is locked", "Quillane"));
    RunEvent(Main);
    EXPECT_EQ(end.Codes().size(), 2U);
}

TEST_F(StartUp, JournalIsWrittenBackWhenTheStationIsIdle) {
    MakeFile("Account1");
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    const std::string log = File("Account1.db-wal");
    EXPECT_GT(std::filesystem::file_size(log), 0U) << "the company name has been stored";
    EXPECT_TRUE(WaitFor([&] { return std::filesystem::file_size(log) == 0; }));
    // A save of another station takes only a moment.
    {
        const HeldLock lock(File("Account1.db"), StationThatSaves);
        Con->Execute("Select 1");
    }
    Con->BeginTrans();
    Con->Execute("Update Project_Registry Set value = 'x'");
    Con->CommitTrans();
    EXPECT_GT(std::filesystem::file_size(log), 0U);
    EXPECT_TRUE(WaitFor([&] { return std::filesystem::file_size(log) == 0; }));
}

TEST_F(StartUp, WriteBackIsRepeatedUntilTheDatabaseIsFree) {
    MakeFile("Account1");
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    const std::string log = File("Account1.db-wal");
    auto lock = std::make_unique<HeldLock>(File("Account1.db"), StationThatSaves);
    bool isTime = false;
    QTimer::singleShot(std::chrono::seconds(2), [&] { isTime = true; });
    EXPECT_TRUE(WaitFor([&] { return isTime; })) << "longer than the idle time of the station";
    EXPECT_GT(std::filesystem::file_size(log), 0U);
    lock.reset();
    EXPECT_TRUE(WaitFor([&] { return std::filesystem::file_size(log) == 0; }));
}

// In a child process, because it really ends.
TEST_F(StartUp, EndOfTheProcessClosesTheDatabase) {
    MakeFile("Account1");
    EXPECT_EXIT(
        {
            SetEndProcess({});
            const VisitModal visit([this](Screen& screen) {
                if (!std::filesystem::exists(File("Account1.db-wal")))
                    std::_Exit(2);
                GiveUp()(screen);
            });
            Main();
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(LookAtEmbeddedDatabase(File("Account1.db")).companyName, "VELTRANE MILLS");
    EXPECT_FALSE(std::filesystem::exists(File("Account1.db-wal")));
    EXPECT_FALSE(std::filesystem::exists(File("Account1.db-shm")));
}

TEST_F(StartUp, JournalOfAnotherStateEndsTheProcess) {
    MakeFile("Account1");
    const std::string file = File("Account1.db");
    HeldLock(file, "PRAGMA journal_mode = WAL; INSERT INTO Cities VALUES (1, 'Okara')");
    std::filesystem::copy_file(file, File("backup"));
    HeldLock(file, "INSERT INTO Cities VALUES (7, 'Lahore')");
    {
        const HeldLock station(file, "INSERT INTO ChartOfAccounts VALUES ('601', 'Akbar', 1);"
                                     "INSERT INTO Parties (PartyId, CityId) VALUES ('601', 7)");
        std::filesystem::copy_file(File("Account1.db-wal"), File("left"));
    }
    std::filesystem::rename(File("backup"), File("Account1.db"));
    std::filesystem::rename(File("left"), File("Account1.db-wal"));
    const std::string log = File("Account1.db-wal");
    ExpectToEndWith("The journal " + log + " does not belong to the database file " +
                    File("Account1.db") +
                    ": it belongs to an earlier state of the database, before a copy replaced it. "
                    "Please move " +
                    log + " and " + File("Account1.db-shm") +
                    " to another folder and start the program again.");
}

TEST_F(StartUp, OnlyTheSignInReadsPasswordHashes) {
    MakeFile("Account1");
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    EXPECT_THROW(Con->Execute("Select PasswordHash From StationUsers"), Failure);
}

// ---- errors that end the start ----

TEST_F(StartUp, CancelledSetUpEndsWithItsMessage) {
    boxes.Expect(Alert("Error occured in databse creation. \r\nPlease contact to your software "
                       "vendor for further assistance",
                       BoxIcon::Critical));
    const VisitModal visit(GiveUp());
    Main();
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
    EXPECT_FALSE(std::filesystem::exists(File("Config.ini")));
    EXPECT_EQ(Con->State(), 0);
}

TEST_F(StartUp, SetUpWithoutAConfigFileEndsTheProcess) {
    const VisitModal visit([this](Screen& screen) {
        ScreenDriver driver(screen);
        for (const char* text : {"Veltrane", "", "", "", "nadia", "grain", "grain"})
            driver.Type(text).Press(Qt::Key_Return);
        driver.Press(Qt::Key_Return);
        EXPECT_FALSE(screen.IsLoaded());
        EXPECT_TRUE(std::filesystem::remove(File("Config.ini")));
    });
    ExpectToEndWith("File not found: " + File("Config.ini"));
}

TEST_F(StartUp, ApostropheInTheCompanyNameEndsTheProcess) {
    MakeDatabase();
    TheStation().CompanyNames[1] = "O'Neill";
    ExpectToEndWith(EngineWords("near \"NEILL\": syntax error"));
}

// An older version created both files readable by others. They contain a password and its hashes.
TEST_F(StartUp, FilesOfAnOlderVersionAreRestrictedToOwnerAndGroup) {
    namespace fs = std::filesystem;
    MakeFile("Account1");
    for (const char* name : {"Config.ini", "Account1.db"})
        fs::permissions(File(name), fs::perms(0644));
    const VisitModal visit(SignInAs("ali", "wheat"));
    Main();
    for (const char* name : {"Config.ini", "Account1.db"})
        EXPECT_EQ(fs::status(File(name)).permissions(), fs::perms(0640)) << name;
}

TEST_F(StartUp, UnreadableConfigFileEndsTheProcess) {
    std::filesystem::create_directory(File("Config.ini"));
    ExpectToEndWith("The file " + File("Config.ini") +
                    " cannot be read. Check the rights of this user.");
}

TEST_F(StartUp, EmptyConfigFileEndsTheProcess) {
    Write("Config.ini", "");
    ExpectToEndWith("Input past end of file: " + File("Config.ini") + " is empty.");
}

TEST_F(StartUp, ConfigFileCutAtItsCommaEndsTheProcess) {
    Write("Config.ini", "Server=(embedded),1433;Database=Account1");
    ExpectToEndWith("The connection string names no database.");
}

TEST_F(StartUp, MissingDatabaseEndsTheProcess) {
    Write("Config.ini", "Server=(embedded);Database=Account7");
    ExpectToEndWith("The database file " + File("Account7.db") + " does not exist.");
}

TEST_F(StartUp, FileThatIsNotADatabaseEndsTheProcess) {
    Write("Config.ini", "Server=(embedded);Database=Account1");
    Write("Account1.db", std::string(4096, 'x'));
    ExpectToEndWith("The file " + File("Account1.db") + " is not a database.");
}

TEST_F(StartUp, DatabaseNameWithoutCompanyNumberEndsTheProcess) {
    MakeFile("Mill");
    ExpectToEndWith("Type mismatch: the eighth character of the database name \"Mill\" is not a "
                    "company number.");
}

// ---- single functions ----

struct FieldCase {
    std::string text;
    std::string field;

    friend void PrintTo(const FieldCase& each, std::ostream* out) { *out << each.text; }
};

class FirstField : public StartUp, public testing::WithParamInterface<FieldCase> {};

TEST_P(FirstField, EndsAtCommaLineEndOrClosingQuote) {
    Write("Config.ini", GetParam().text);
    EXPECT_EQ(ReadFirstField(File("Config.ini")), GetParam().field);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryForm, FirstField,
    testing::Values(FieldCase{"Server=a;Database=b", "Server=a;Database=b"},
                    FieldCase{"Server=a;Database=b\nsecond line", "Server=a;Database=b"},
                    FieldCase{"Server=a;Database=b\r\nsecond line", "Server=a;Database=b"},
                    FieldCase{"Server=a;Database=b\rsecond line", "Server=a;Database=b"},
                    FieldCase{"   Server=a", "Server=a"},
                    FieldCase{"Server=a,1433;Database=b", "Server=a"},
                    FieldCase{"\"Server=a,1433;Database=b\"", "Server=a,1433;Database=b"},
                    FieldCase{"  \"Server=a,1433\";Database=b", "Server=a,1433"},
                    FieldCase{"\"Server=a,1433\",\"b\"", "Server=a,1433"},
                    FieldCase{"\"Server=a,1433", "Server=a,1433"}, FieldCase{"\"\"", ""},
                    FieldCase{"Server=\"a,b\"", "Server=\"a"}, FieldCase{"\nServer=a", ""},
                    FieldCase{",Server=a", ""}, FieldCase{"\xEF\xBB\xBFServer=a", "Server=a"},
                    FieldCase{"Server=چکی", "Server=چکی"}));

int NumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST_F(StartUp, MissingOrEmptyFileFails) {
    EXPECT_EQ(NumberOf([&] { ReadFirstField(File("Config.ini")); }), FailureNumber::FileNotFound);
    Write("Config.ini", "");
    EXPECT_EQ(NumberOf([&] { ReadFirstField(File("Config.ini")); }), FailureNumber::InputPastEnd);
}

struct StringCase {
    std::string osName;
    std::string stationRole;
    std::string text;

    friend void PrintTo(const StringCase& each, std::ostream* out) { *out << each.osName; }
};

class StationConnectionStringTest : public testing::TestWithParam<StringCase> {};

TEST_P(StationConnectionStringTest, WindowsXpAndClientsUseTheAnonymousUser) {
    EXPECT_EQ(
        StationConnectionString(GetParam().osName, GetParam().stationRole, "Server=a;Database=b"),
        GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryStation, StationConnectionStringTest,
    testing::Values(StringCase{"Debian GNU/Linux 12 (bookworm)", "",
                               "Driver=SQL Server;Server=a;Database=b"},
                    StringCase{"Debian GNU/Linux 12 (bookworm)", "Client",
                               "Driver=SQL Server;Server=a;Database=b;Uid=anonymous"},
                    StringCase{"Debian GNU/Linux 12 (bookworm)", "client",
                               "Driver=SQL Server;Server=a;Database=b"},
                    StringCase{"Debian GNU/Linux 12 (bookworm)", "Server",
                               "Driver=SQL Server;Server=a;Database=b"},
                    StringCase{"Microsoft Windows XP", "Server",
                               "Driver=SQL Server;Server=a;Database=b;Uid=anonymous"},
                    StringCase{"microsoft WINDOWS xp", "",
                               "Driver=SQL Server;Server=a;Database=b;Uid=anonymous"},
                    StringCase{"Microsoft Windows XP Professional", "",
                               "Driver=SQL Server;Server=a;Database=b"},
                    StringCase{"", "", "Driver=SQL Server;Server=a;Database=b"}));

// The release of the other two has no effect that can be seen.
TEST(ReleaseServices, ReleasesTheSignInLast) {
    struct AtRelease {
        std::vector<bool>& others;
        ~AtRelease() { others = {CompanyProfile.Exists(), DatabaseSetup.Exists()}; }
    };
    std::vector<bool> others;
    UserLogin->About = [seen = std::make_shared<AtRelease>(others)] {};
    CompanyProfile->CompanyTitle();
    DatabaseSetup->Succeeded();
    ReleaseServices();
    EXPECT_EQ(others, (std::vector<bool>{false, false}));
    EXPECT_FALSE(UserLogin.Exists());
}

TEST(CompanyNumber, IsTheEighthCharacter) {
    EXPECT_EQ(CompanyNumber("Account1"), 1);
    EXPECT_EQ(CompanyNumber("Account05"), 0);
    EXPECT_EQ(CompanyNumber("Account9Mill"), 9);
    EXPECT_EQ(CompanyNumber("Málagaä7"), 7);
    for (const char* name : {"", "Account", "AccountX", "Account ", "Account-", "1234567"})
        EXPECT_EQ(NumberOf([&] { CompanyNumber(name); }), FailureNumber::TypeMismatch) << name;
}

} // namespace
} // namespace Quillane
