#include "office/commands/CommandLine.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

Request Read(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "quillane-office");
    return ReadArguments(arguments);
}

TEST(OfficeCommandLine, ImportNamesItsTableFileAndOptions) {
    const Request request =
        Read({"--import", "parties", "list.csv", "--yes", "--skip-faulty", "--station", "/mill"});
    EXPECT_EQ(request.fault, "");
    EXPECT_EQ(request.act, Request::Act::Import);
    EXPECT_EQ(request.table, "parties");
    EXPECT_EQ(request.file, "list.csv");
    EXPECT_EQ(request.station, "/mill");
    EXPECT_TRUE(request.isConfirmed);
    EXPECT_TRUE(request.skipsFaulty);
}

TEST(OfficeCommandLine, UsersAreNamedWithTheirLevel) {
    const Request added = Read({"--add-user", "Imran", "--level", "1", "--sign-in", "sa"});
    EXPECT_EQ(added.fault, "");
    EXPECT_EQ(added.act, Request::Act::AddUser);
    EXPECT_EQ(added.user, "Imran");
    EXPECT_EQ(added.level, 1);
    EXPECT_EQ(added.signIn, "sa");
    EXPECT_EQ(Read({"--add-user", "Imran"}).level, 2);
    EXPECT_EQ(Read({"--reset-password", "Imran"}).act, Request::Act::ResetPassword);
}

TEST(OfficeCommandLine, HelpAndVersionNeedNothingElse) {
    EXPECT_EQ(Read({"--help"}).act, Request::Act::Help);
    EXPECT_EQ(Read({"-v"}).act, Request::Act::Version);
    EXPECT_EQ(Read({"--help"}).fault, "");
    EXPECT_NE(HelpText().find("--reset-password NAME"), std::string::npos);
}

TEST(OfficeCommandLine, WrongArgumentsAreToldApart) {
    EXPECT_EQ(Read({}).fault, "No command is given.");
    EXPECT_EQ(Read({"--import", "cows", "x.csv"}).fault, "There is no table \"cows\".");
    EXPECT_EQ(Read({"--import", "parties"}).fault, "A table and one file are needed.");
    EXPECT_EQ(Read({"--export", "parties", "a", "b"}).fault, "A table and one file are needed.");
    EXPECT_EQ(Read({"--add-user", "Imran", "secret"}).fault, "Unexpected argument \"secret\".");
    EXPECT_EQ(Read({"--add-user", "a", "--level", "x"}).fault,
              "The option --level needs a number.");
    EXPECT_EQ(Read({"--export", "parties", "a", "--yes"}).fault,
              "--yes and --skip-faulty belong to --import.");
    EXPECT_EQ(Read({"--reset-password", "a", "--level", "1"}).fault,
              "--level belongs to --add-user.");
    EXPECT_EQ(Read({"--add-user", "a", "--reset-password", "b"}).fault,
              "Only one command can be given at a time.");
    EXPECT_NE(Read({"--frobnicate"}).fault, "");
}

} // namespace
} // namespace Quillane::Office
