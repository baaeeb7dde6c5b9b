#include "setup/SqlServerTarget.h"

#include <gtest/gtest.h>

#include <functional>

namespace Quillane {

namespace {

SqlServerTarget SomeTarget() {
    return {.server = "mill-sql",
            .port = "1433",
            .database = "Account1",
            .userName = "gate",
            .password = "Weigh_2026"};
}

struct FragmentCase {
    std::function<void(SqlServerTarget&)> change;
    std::string onFreeTds;
    std::string onWindows;
};

TEST(ConfigFragment, IsWrittenForTheDriver) {
    const FragmentCase cases[] = {
        {[](SqlServerTarget&) {},
         "Server=mill-sql;Port=1433;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4",
         "Server=mill-sql,1433;Database=Account1;UID=gate;PWD=Weigh_2026"},
        {[](SqlServerTarget& target) {
             target.server = "mill-sql\\BOOKS";
             target.port = "";
         },
         "Server=mill-sql\\BOOKS;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4",
         "Server=mill-sql\\BOOKS;Database=Account1;UID=gate;PWD=Weigh_2026"},
        {[](SqlServerTarget& target) { target.windowsSignIn = true; },
         "Server=mill-sql;Port=1433;Database=Account1;Trusted_Connection=Yes;TDS_Version=7.4",
         "Server=mill-sql,1433;Database=Account1;Trusted_Connection=Yes"},
        {[](SqlServerTarget& target) { target.options = "Encryption=require;"; },
         "Server=mill-sql;Port=1433;Database=Account1;UID=gate;PWD=Weigh_2026;TDS_Version=7.4;"
         "Encryption=require",
         "Server=mill-sql,1433;Database=Account1;UID=gate;PWD=Weigh_2026;Encryption=require"},
        {[](SqlServerTarget& target) { target.database = "Account1 of 2026"; },
         "Server=mill-sql;Port=1433;Database=Account1 of 2026;UID=gate;PWD=Weigh_2026;"
         "TDS_Version=7.4",
         "Server=mill-sql,1433;Database={Account1 of 2026};UID=gate;PWD=Weigh_2026"},
    };
    for (const FragmentCase& each : cases) {
        SqlServerTarget target = SomeTarget();
        each.change(target);
        EXPECT_EQ(ConfigFragment(target, SqlServerDriver::FreeTds), each.onFreeTds);
        EXPECT_EQ(ConfigFragment(target, SqlServerDriver::Windows), each.onWindows);
        EXPECT_FALSE(FaultOf(target, SqlServerDriver::FreeTds)) << each.onFreeTds;
        EXPECT_FALSE(FaultOf(target, SqlServerDriver::Windows)) << each.onWindows;
    }
}

struct PasswordCase {
    std::string password;
    std::string onFreeTds;
    std::string onWindows;
};

TEST(ConfigFragment, WritesEachPasswordAsTheDriverReadsIt) {
    const PasswordCase cases[] = {
        {"plain", "plain", "plain"}, {"a;b", "{a;b}", "{a;b}"},  {"a,b", "a,b", "{a,b}"},
        {"a}b", "a}b", "{a}}b}"},    {"{a}", "{{a}}", "{{a}}}"}, {"a\"b", "a\"b", "a\"b"},
        {"a'b", "a'b", "a'b"},       {"a=b", "a=b", "{a=b}"},    {" a ", " a ", "{ a }"},
        {"چکی-1", "چکی-1", "چکی-1"}, {"a{;", "{a{;}", "{a{;}"},  {"a]b", "a]b", "{a]b}"},
    };
    for (const PasswordCase& each : cases) {
        SqlServerTarget target = SomeTarget();
        target.password = each.password;
        const auto has = [&](SqlServerDriver driver, const std::string& value) {
            const std::string fragment = ConfigFragment(target, driver) + ";";
            return fragment.find(";PWD=" + value + ";") != std::string::npos;
        };
        EXPECT_TRUE(has(SqlServerDriver::FreeTds, each.onFreeTds))
            << ConfigFragment(target, SqlServerDriver::FreeTds);
        EXPECT_TRUE(has(SqlServerDriver::Windows, each.onWindows))
            << ConfigFragment(target, SqlServerDriver::Windows);
    }
}

TEST(ConfigFileText, IsInQuotesIfItContainsAComma) {
    EXPECT_EQ(ConfigFileText("Server=a;Database=b"), "Server=a;Database=b\n");
    EXPECT_EQ(ConfigFileText("Server=a,1433;Database=b"), "\"Server=a,1433;Database=b\"\n");
    EXPECT_EQ(ConfigFileText("Server=a;PWD=x\"y"), "Server=a;PWD=x\"y\n");
}

struct FaultCase {
    std::string SqlServerTarget::*entry;
    std::string value;
    std::string reason;
};

TEST(FaultOf, NamesTheEntryAndTheReason) {
    const std::string rule = " The eighth character is the company number, as in Account1.";
    const std::string noServer = "This is not a name or address of a server.";
    const std::string noPort = "A port is a number from 1 to 65535.";
    const FaultCase cases[] = {
        {&SqlServerTarget::server, "", "Enter the server's name or address."},
        {&SqlServerTarget::server, "mill sql", noServer},
        {&SqlServerTarget::server, "mill;UID=sa", noServer},
        {&SqlServerTarget::server, "(Embedded)", noServer},
        {&SqlServerTarget::server, "mill,1433",
         "Enter the port in its own box, not after the server's name."},
        {&SqlServerTarget::server, "mill\\BOOKS", ""}, // the fault is the port
        {&SqlServerTarget::port, "", "Enter the server's port; the usual one is 1433."},
        {&SqlServerTarget::port, "0", noPort},
        {&SqlServerTarget::port, "65536", noPort},
        {&SqlServerTarget::port, "143 3", noPort},
        {&SqlServerTarget::port, "-1", noPort},
        {&SqlServerTarget::database, "", "Enter the database's name."},
        {&SqlServerTarget::database, "Mill",
         "The database's name \"Mill\" has fewer than eight characters." + rule},
        {&SqlServerTarget::database, "1234567",
         "The database's name \"1234567\" has fewer than eight characters." + rule},
        {&SqlServerTarget::database, "AccountX",
         "The eighth character of the database's name \"AccountX\" is not a digit." + rule},
        {&SqlServerTarget::database, "Accounts1",
         "The eighth character of the database's name \"Accounts1\" is not a digit." + rule},
        {&SqlServerTarget::userName, "", "Enter the name to sign in with."},
        {&SqlServerTarget::password, "", "Enter the password of this name."},
        {&SqlServerTarget::password, "a};b",
         "The password contains characters that the connection string cannot contain, such as "
         "\"};\". Choose another."},
        {&SqlServerTarget::password, "a\tb",
         "The password contains characters that the connection string cannot contain, such as "
         "\"};\". Choose another."},
        {&SqlServerTarget::password, "a,\"b",
         "Config.ini cannot contain both a comma and a double quote. Choose a password without "
         "the double quote."},
        {&SqlServerTarget::options, "require",
         "Options are pairs that the driver knows, separated by semicolons: Encryption=require"},
    };
    for (const FaultCase& each : cases) {
        SqlServerTarget target = SomeTarget();
        target.*each.entry = each.value;
        const auto fault = FaultOf(target, SqlServerDriver::FreeTds);
        ASSERT_TRUE(fault) << each.value;
        if (each.reason.empty()) {
            EXPECT_EQ(fault->entry, &SqlServerTarget::port);
            continue;
        }
        EXPECT_EQ(fault->reason, each.reason);
        EXPECT_EQ(fault->entry, each.entry) << each.value;
    }
}

TEST(FaultOf, ChecksTheEighthCharacterInAnyScript) {
    EXPECT_EQ(WhyNameIsUnfit("Account0"), "");
    EXPECT_EQ(WhyNameIsUnfit("Málagaä7"), "");
    EXPECT_EQ(WhyNameIsUnfit("Account12026"), "");
    EXPECT_NE(WhyNameIsUnfit("Account٣"), "");
}

TEST(FaultOf, IgnoresNameAndPasswordForTheWindowsSignIn) {
    SqlServerTarget target = SomeTarget();
    target.userName = target.password = "";
    target.windowsSignIn = true;
    EXPECT_FALSE(FaultOf(target, SqlServerDriver::FreeTds));
}

TEST(FaultOf, AllowsForTheWindowsDriverWhatFreeTdsCannotRead) {
    SqlServerTarget target = SomeTarget();
    target.password = "a};b";
    EXPECT_TRUE(FaultOf(target, SqlServerDriver::FreeTds));
    EXPECT_FALSE(FaultOf(target, SqlServerDriver::Windows));
}

// On Windows the port is written with a comma, so the line is in quotes.
TEST(FaultOf, RefusesAQuoteForTheWindowsDriver) {
    SqlServerTarget target = SomeTarget();
    target.password = "a\"b";
    EXPECT_FALSE(FaultOf(target, SqlServerDriver::FreeTds));
    EXPECT_TRUE(FaultOf(target, SqlServerDriver::Windows));
}

} // namespace
} // namespace Quillane
