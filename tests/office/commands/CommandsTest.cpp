#include "office/commands/Commands.h"

#include "office/commands/StationConnection.h"
#include "office/records/Rows.h"
#include "signin/UserLogin.h"
#include "station/StationDatabase.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>

namespace Quillane::Office {
namespace {

class OfficeCommands : public testing::Test {
protected:
    OfficeCommands() {
        database.folder.Write("Config.ini", database.ConfigText());
        OpenStationDatabase(connection, database.folder.path, {});
    }

    ExitCode Run(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), "quillane-office");
        in.str(input);
        in.clear();
        out.str("");
        err.str("");
        Terminal terminal{.in = in,
                          .out = out,
                          .err = err,
                          .password =
                              [&](const std::string&) {
                                  const std::string next = passwords.front();
                                  passwords.pop_front();
                                  return next;
                              },
                          .confirm = [&](const std::string&) { return saysYes; },
                          .hashCost = HashCost::Minimum};
        const Request request = ReadArguments(arguments);
        EXPECT_EQ(request.fault, "");
        return RunCommand(connection, request, terminal);
    }
    bool Has(const Table& table, const std::string& key) {
        return ReadRow(connection, table, key).has_value();
    }

    StationDatabase database;
    Connection connection;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    std::deque<std::string> passwords;
    bool saysYes = false;
};

TEST_F(OfficeCommands, ImportIsWrittenAfterConfirmation) {
    EXPECT_EQ(Run({"--import", "cities", "-"}, "CityId,CityName\n77,Jhang\n3,Okara\n"),
              ExitCode::NotConfirmed);
    EXPECT_FALSE(Has(CitiesTable(), "77"));
    EXPECT_EQ(out.str(), "Cities: 1 new, 0 changed, 1 unchanged, 0 faulty.\n");
    EXPECT_EQ(err.str(), "Nothing has been written. Answer yes, or use --yes.\n");
    saysYes = true;
    EXPECT_EQ(Run({"--import", "cities", "-"}, "CityId,CityName\n77,Jhang\n"), ExitCode::Done);
    EXPECT_TRUE(Has(CitiesTable(), "77"));
}

TEST_F(OfficeCommands, ImportWithYesAsksNoQuestion) {
    database.folder.Write("cities.csv", "CityId,CityName\n77,Jhang\n");
    EXPECT_EQ(Run({"--import", "CITIES", database.folder.File("cities.csv"), "--yes"}),
              ExitCode::Done);
    EXPECT_EQ(out.str(), "Cities: 1 new, 0 changed, 0 unchanged, 0 faulty.\n1 row written.\n");
    EXPECT_TRUE(Has(CitiesTable(), "77"));
}

TEST_F(OfficeCommands, FaultyLinePreventsTheImportUnlessSkipped) {
    const std::string text = "CityId,CityName\n77,Jhang\nx,Kasur\n";
    EXPECT_EQ(Run({"--import", "cities", "-", "--yes"}, text), ExitCode::Refused);
    EXPECT_FALSE(Has(CitiesTable(), "77"));
    EXPECT_EQ(
        err.str(),
        "Line 3 (Kasur), faulty: Number \"x\" is not a whole number from 1 to 2147483647.\n"
        "Nothing has been written. Correct the faulty lines, or skip them with --skip-faulty.\n");
    EXPECT_EQ(Run({"--import", "cities", "-", "--yes", "--skip-faulty"}, text), ExitCode::Done);
    EXPECT_TRUE(Has(CitiesTable(), "77"));
}

TEST_F(OfficeCommands, FileWithoutTheColumnsOfTheListIsRefused) {
    EXPECT_EQ(Run({"--import", "cities", "-", "--yes"}, "1,2\n"), ExitCode::Refused);
    EXPECT_EQ(Run({"--import", "cities", "-", "--yes"}, "CityName\nZo\xEB\n"), ExitCode::Refused);
    EXPECT_EQ(err.str(), "Line 2: The file is not UTF-8. Save it as \"CSV UTF-8\".\n");
    const Failure missing = FailureOf([&] { Run({"--import", "cities", "/none/x.csv"}); });
    EXPECT_EQ(missing.Description(), "The file /none/x.csv does not exist. Check the path.");
}

TEST_F(OfficeCommands, ExportedFileIsImportedUnchanged) {
    const std::string file = database.folder.File("parties.csv");
    EXPECT_EQ(Run({"--export", "parties", file}), ExitCode::Done);
    EXPECT_EQ(Run({"--import", "parties", file}), ExitCode::Done);
    EXPECT_NE(out.str().find("0 new, 0 changed"), std::string::npos);
    EXPECT_EQ(Run({"--export", "cities", "-"}), ExitCode::Done);
    EXPECT_NE(out.str().find("3,Okara\r\n"), std::string::npos);
}

TEST_F(OfficeCommands, AddedUserAndResetPasswordSignIn) {
    UserLoginObject login;
    login.SetConnection(connection);
    passwords = {"sack-of-wheat", "sack-of-wheat"};
    EXPECT_EQ(Run({"--add-user", "Imran"}), ExitCode::Done);
    EXPECT_EQ(login.SignIn("imran", "sack-of-wheat"), UserLoginObject::Attempt::SignedIn);
    EXPECT_EQ(login.UserLevel(), 2);
    passwords = {"bale-of-straw", "bale-of-straw"};
    EXPECT_EQ(Run({"--reset-password", "nadia"}), ExitCode::Done);
    EXPECT_EQ(login.SignIn("Nadia", "bale-of-straw"), UserLoginObject::Attempt::SignedIn);
}

TEST_F(OfficeCommands, PasswordRuleIsShownAndThePasswordAskedForTwice) {
    passwords = {"sack-of-wheat", "sack-of-what"};
    EXPECT_EQ(Run({"--add-user", "Imran"}), ExitCode::Refused);
    EXPECT_EQ(err.str(), "At least 8 characters, at most 128. The password is case-sensitive.\n"
                         "The two passwords differ. Nothing has been written. Try again.\n");
    passwords = {"short", "short"};
    EXPECT_EQ(Run({"--reset-password", "Nadia"}), ExitCode::Refused);
    passwords = {"sack-of-wheat", "sack-of-wheat"};
    EXPECT_EQ(Run({"--reset-password", "nobody"}), ExitCode::Refused);
}

TEST_F(OfficeCommands, MessageForAStationWithoutSetUpSaysWhatToDo) {
    const FreshFolder empty;
    Connection other;
    const Failure failure = FailureOf([&] { OpenStationDatabase(other, empty.path, {}); });
    EXPECT_EQ(failure.Number(), FailureNumber::FileNotFound);
    EXPECT_NE(failure.Description().find("Start the station first"), std::string::npos);
}

TEST_F(OfficeCommands, DatabaseWithAnotherSchemaNumberIsRefused) {
    database.Run("Update StationSchema Set SchemaVersion = 99");
    Connection other;
    const Failure failure =
        FailureOf([&] { OpenStationDatabase(other, database.folder.path, {}); });
    EXPECT_NE(failure.Description().find("is 99, newer than"), std::string::npos);
}

TEST(ServerSignIns, LoginAttributesAreRemoved) {
    EXPECT_EQ(WithoutSignIn("Server=a;Port=1;Database=Account1;uid=x;PWD={a;b};TDS_Version=7.4"),
              "Server=a;Port=1;Database=Account1;TDS_Version=7.4");
    EXPECT_EQ(WithoutSignIn("Server=a;Trusted_Connection=Yes"), "Server=a");
    EXPECT_EQ(WithoutSignIn("Server=a;Database={A;UID=1};Pwd={x}"), "Server=a;Database={A;UID=1}");
}

TEST_F(OfficeCommands, DayBookIsWrittenToTheOutputAndToFiles) {
    EXPECT_EQ(Run({"--day-book", "2000-01-01", "2999-12-31", "--csv", "-"}), ExitCode::Done);
    const std::string text = out.str();
    EXPECT_EQ(std::ranges::count(text, '\n'),
              13); // the headings and the arrivals of the sample rows
    const std::string file = database.folder.File("book.csv");
    EXPECT_EQ(Run({"--day-book", "2000-01-01", "2999-12-31", "--csv", file}), ExitCode::Done);
    EXPECT_EQ(out.str(), "12 arrivals of 01/01/2000 to 31/12/2999 written to " + file + ".\n");
    EXPECT_EQ(database.folder.Read("book.csv"), text);
    EXPECT_EQ(Run({"--day-book", "2000-01-01", "2999-12-31", "--sums", "commodity", "--csv", "-"}),
              ExitCode::Done);
    EXPECT_TRUE(out.str().starts_with("\xEF\xBB\xBF"
                                      "Commodity,CommodityId,Arrivals,StillInside,Bags,"));
    const std::string book = database.folder.File("book.xlsx");
    EXPECT_EQ(Run({"--day-book", "2000-01-01", "2999-12-31", "--xlsx", book}), ExitCode::Done);
    EXPECT_TRUE(database.folder.Read("book.xlsx").starts_with("PK"));
}

} // namespace
} // namespace Quillane::Office
