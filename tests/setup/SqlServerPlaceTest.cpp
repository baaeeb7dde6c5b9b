#include "setup/SqlServerPlace.h"

#include <gtest/gtest.h>

#include <functional>

namespace Quillane {

namespace {

SqlServerPlace SomePlace() {
    return {.server = "mill-sql",
            .port = "1433",
            .database = "Account1",
            .userName = "gate",
            .password = "Weigh_2026"};
}

struct FragmentCase {
    std::function<void(SqlServerPlace&)> change;
    std::string onFreeTds;
    std::string onWindows;
};

TEST(ConfigFragment, IsWhatTheDriverReads) {
    const FragmentCase cases[] = {
        {[](SqlServerPlace&) {},
         "Server=mill-sql;Port=1433;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4",
         "Server=mill-sql,1433;Database=Account1;UID=gate;PWD=Weigh_2026"},
        {[](SqlServerPlace& place) {
             place.server = "mill-sql\\BOOKS";
             place.port = "";
         },
         "Server=mill-sql\\BOOKS;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4",
         "Server=mill-sql\\BOOKS;Database=Account1;UID=gate;PWD=Weigh_2026"},
        {[](SqlServerPlace& place) { place.windowsSignIn = true; },
         "Server=mill-sql;Port=1433;Database=Account1;Trusted_Connection=Yes;TDS_Version=7.4",
         "Server=mill-sql,1433;Database=Account1;Trusted_Connection=Yes"},
        {[](SqlServerPlace& place) { place.options = "Encryption=require;"; },
         "Server=mill-sql;Port=1433;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4;"
         "Encryption=require",
         "Server=mill-sql,1433;Database=Account1;UID=gate;PWD=Weigh_2026;Encryption=require"},
        {[](SqlServerPlace& place) { place.database = "Account1 of 2026"; },
         "Server=mill-sql;Port=1433;Database=Account1 of 2026;UID=gate;PWD=Weigh_2026;"
         "TDS_Version=7.4",
         "Server=mill-sql,1433;Database={Account1 of 2026};UID=gate;PWD=Weigh_2026"},
    };
    for (const FragmentCase& each : cases) {
        SqlServerPlace place = SomePlace();
        each.change(place);
        EXPECT_EQ(ConfigFragment(place, SqlServerDriver::FreeTds), each.onFreeTds);
        EXPECT_EQ(ConfigFragment(place, SqlServerDriver::Windows), each.onWindows);
        EXPECT_FALSE(FaultOf(place, SqlServerDriver::FreeTds)) << each.onFreeTds;
        EXPECT_FALSE(FaultOf(place, SqlServerDriver::Windows)) << each.onWindows;
    }
}

struct PasswordCase {
    std::string password;
    std::string onFreeTds;
    std::string onWindows;
};

TEST(ConfigFragment, CarriesAnyPasswordAsEachDriverReadsIt) {
    const PasswordCase cases[] = {
        {"plain", "plain", "plain"}, {"a;b", "{a;b}", "{a;b}"},  {"a,b", "a,b", "{a,b}"},
        {"a}b", "a}b", "{a}}b}"},    {"{a}", "{{a}}", "{{a}}}"}, {"a\"b", "a\"b", "a\"b"},
        {"a'b", "a'b", "a'b"},       {"a=b", "a=b", "{a=b}"},    {" a ", " a ", "{ a }"},
        {"چکی-1", "چکی-1", "چکی-1"}, {"a{;", "{a{;}", "{a{;}"},  {"a]b", "a]b", "{a]b}"},
    };
    for (const PasswordCase& each : cases) {
        SqlServerPlace place = SomePlace();
        place.password = each.password;
        const auto has = [&](SqlServerDriver driver, const std::string& value) {
            const std::string fragment = ConfigFragment(place, driver) + ";";
            return fragment.find(";PWD=" + value + ";") != std::string::npos;
        };
        EXPECT_TRUE(has(SqlServerDriver::FreeTds, each.onFreeTds))
            << ConfigFragment(place, SqlServerDriver::FreeTds);
        EXPECT_TRUE(has(SqlServerDriver::Windows, each.onWindows))
            << ConfigFragment(place, SqlServerDriver::Windows);
    }
}

TEST(ConfigFileText, StandsInQuotesWhereItHoldsAComma) {
    EXPECT_EQ(ConfigFileText("Server=a;Database=b"), "Server=a;Database=b\n");
    EXPECT_EQ(ConfigFileText("Server=a,1433;Database=b"), "\"Server=a,1433;Database=b\"\n");
    EXPECT_EQ(ConfigFileText("Server=a;PWD=x\"y"), "Server=a;PWD=x\"y\n");
}

struct FaultCase {
    std::string SqlServerPlace::*entry;
    std::string value;
    std::string reason;
};

TEST(FaultOf, NamesTheEntryAndTheReason) {
    const std::string rule = " The eighth is the company's number, as in Account1.";
    const std::string noServer = "This is no name or address of a server.";
    const std::string noPort = "A port is a number from 1 to 65535.";
    const FaultCase cases[] = {
        {&SqlServerPlace::server, "", "Please give the server's name or address."},
        {&SqlServerPlace::server, "mill sql", noServer},
        {&SqlServerPlace::server, "mill;UID=sa", noServer},
        {&SqlServerPlace::server, "(Embedded)", noServer},
        {&SqlServerPlace::server, "mill,1433",
         "Please give the port in its own box, not behind the server's name."},
        {&SqlServerPlace::server, "mill\\BOOKS", ""}, // the port is the one that is too much
        {&SqlServerPlace::port, "", "Please give the server's port; 1433 is the usual one."},
        {&SqlServerPlace::port, "0", noPort},
        {&SqlServerPlace::port, "65536", noPort},
        {&SqlServerPlace::port, "143 3", noPort},
        {&SqlServerPlace::port, "-1", noPort},
        {&SqlServerPlace::database, "", "Please give the database's name."},
        {&SqlServerPlace::database, "Mill",
         "The database's name \"Mill\" has fewer than eight characters." + rule},
        {&SqlServerPlace::database, "1234567",
         "The database's name \"1234567\" has fewer than eight characters." + rule},
        {&SqlServerPlace::database, "AccountX",
         "The eighth character of the database's name \"AccountX\" is no digit." + rule},
        {&SqlServerPlace::database, "Accounts1",
         "The eighth character of the database's name \"Accounts1\" is no digit." + rule},
        {&SqlServerPlace::userName, "", "Please give the name to sign in with."},
        {&SqlServerPlace::password, "", "Please give the password of that name."},
        {&SqlServerPlace::password, "a};b",
         "The password holds characters that the connection cannot carry, such as \"};\". Please "
         "choose another."},
        {&SqlServerPlace::password, "a\tb",
         "The password holds characters that the connection cannot carry, such as \"};\". Please "
         "choose another."},
        {&SqlServerPlace::password, "a,\"b",
         "Config.ini cannot hold a comma and a double quote together. Please choose a password "
         "without the double quote."},
        {&SqlServerPlace::options, "require",
         "Options are pairs as the driver knows them, with semicolons between: "
         "Encryption=require"},
    };
    for (const FaultCase& each : cases) {
        SqlServerPlace place = SomePlace();
        place.*each.entry = each.value;
        const auto fault = FaultOf(place, SqlServerDriver::FreeTds);
        ASSERT_TRUE(fault) << each.value;
        if (each.reason.empty()) {
            EXPECT_EQ(fault->entry, &SqlServerPlace::port);
            continue;
        }
        EXPECT_EQ(fault->reason, each.reason);
        EXPECT_EQ(fault->entry, each.entry) << each.value;
    }
}

TEST(FaultOf, TakesTheEighthCharacterOfAnyScript) {
    EXPECT_EQ(WhyNameIsUnfit("Account0"), "");
    EXPECT_EQ(WhyNameIsUnfit("Málagaä7"), "");
    EXPECT_EQ(WhyNameIsUnfit("Account12026"), "");
    EXPECT_NE(WhyNameIsUnfit("Account٣"), "");
}

TEST(FaultOf, ReadsNoNameAndPasswordForTheWindowsSignIn) {
    SqlServerPlace place = SomePlace();
    place.userName = place.password = "";
    place.windowsSignIn = true;
    EXPECT_FALSE(FaultOf(place, SqlServerDriver::FreeTds));
}

TEST(FaultOf, LetsTheWindowsDriverCarryWhatFreeTdsCannot) {
    SqlServerPlace place = SomePlace();
    place.password = "a};b";
    EXPECT_TRUE(FaultOf(place, SqlServerDriver::FreeTds));
    EXPECT_FALSE(FaultOf(place, SqlServerDriver::Windows));
}

// The port makes a comma there, so that the whole line stands in quotes.
TEST(FaultOf, LetsNoQuoteIntoALineForTheWindowsDriver) {
    SqlServerPlace place = SomePlace();
    place.password = "a\"b";
    EXPECT_FALSE(FaultOf(place, SqlServerDriver::FreeTds));
    EXPECT_TRUE(FaultOf(place, SqlServerDriver::Windows));
}

} // namespace
} // namespace Quillane
