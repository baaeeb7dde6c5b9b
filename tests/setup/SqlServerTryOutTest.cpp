#include "setup/SqlServerTryOut.h"

#include <gtest/gtest.h>

namespace Quillane {

namespace {

SqlServerPlace SomePlace(bool windowsSignIn = false) {
    return {.server = "mill-sql",
            .port = "1433",
            .database = "Account1",
            .windowsSignIn = windowsSignIn,
            .userName = "gate",
            .password = "x"};
}

struct WordsCase {
    const char* words;
    bool serverAnswers;
    const char* answer;
};

// The words are those of FreeTDS and of the driver that comes with Windows.
TEST(WhyItDoesNotOpen, SaysPlainlyWhatIsWrongAboveTheDriversWords) {
    const char* away = "No SQL Server answers at mill-sql, port 1433. Please see that it runs, "
                       "that name and port are right, and that no firewall stands between.";
    const char* wrong = "The server refuses the sign-in: the name or the password is wrong.";
    const char* noDatabase =
        "The server answers, but there is no database \"Account1\", or it does "
        "not know this sign-in; the owner's, below, can change that.";
    const WordsCase cases[] = {
        {"[FreeTDS][SQL Server]Unable to connect: Adaptive Server is unavailable or does not "
         "exist\n[FreeTDS][SQL Server]Unable to connect to data source",
         false, away},
        {"[FreeTDS][SQL Server]Unknown host machine name.", false, away},
        {"[FreeTDS][SQL Server]Adaptive Server connection timed out", false, away},
        {"[Microsoft][ODBC SQL Server Driver][DBNETLIB]SQL Server does not exist or access "
         "denied.",
         false, away},
        {"[FreeTDS][SQL Server]Adaptive Server connection failed", false,
         "The server at mill-sql, port 1433 breaks the connection off. It may ask for another "
         "encryption than the options do, or be no SQL Server."},
        {"[FreeTDS][SQL Server]Login failed for user 'gate'.", false, wrong},
        {"[Microsoft][ODBC SQL Server Driver][SQL Server]Login failed for user 'gate'.", false,
         wrong},
        {"[FreeTDS][SQL Server]Cannot open database \"Account1\" requested by the login. The login "
         "failed.\nLogin failed for user 'gate'.",
         true, noDatabase},
        {"[FreeTDS][SQL Server]Die Anmeldung ist fehlgeschlagen.", false,
         "The server refuses the connection."},
    };
    for (const WordsCase& each : cases)
        EXPECT_EQ(WhyItDoesNotOpen(SomePlace(), each.words, each.serverAnswers),
                  std::string(each.answer) + "\n" + each.words);
}

TEST(WhyItDoesNotOpen, LeavesTheAdviceOnAMissingDriverAsItIs) {
    const char* words = "The ODBC driver \"SQL Server\" is not installed. On Debian the package "
                        "tdsodbc brings it.";
    EXPECT_EQ(WhyItDoesNotOpen(SomePlace(), words, false), words);
}

TEST(WhyItDoesNotOpen, NamesTheDomainForTheWindowsSignIn) {
    const char* words = "[FreeTDS][SQL Server]Adaptive Server connection failed";
    EXPECT_EQ(WhyItDoesNotOpen(SomePlace(true), words, false),
              std::string("The Windows sign-in does not get through to mill-sql, port 1433. It "
                          "needs a computer that belongs to the server's domain.\n") +
                  words);
}

TEST(PlaceForSetUp, SignsInAsTheOwnerWhereThereIsOne) {
    EXPECT_EQ(PlaceForSetUp(SomePlace(), {}).userName, "gate");
    EXPECT_TRUE(PlaceForSetUp(SomePlace(true), {}).windowsSignIn);
    const SqlServerPlace place =
        PlaceForSetUp(SomePlace(true), {.userName = "sa", .password = "y"});
    EXPECT_EQ(place.userName, "sa");
    EXPECT_EQ(place.password, "y");
    EXPECT_FALSE(place.windowsSignIn);
    EXPECT_EQ(place.database, "Account1");
}

} // namespace
} // namespace Quillane
