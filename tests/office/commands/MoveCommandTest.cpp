#include "office/commands/MoveCommand.h"

#include "platform/runtime/LongWork.h"
#include "station/StationDatabase.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Quillane::Office {
namespace {

class MoveCommand : public testing::Test {
protected:
    MoveCommand() { WriteConfig("Server=(embedded);Database=Account1"); }

    void WriteConfig(const std::string& text) {
        station.folder.Write("Config.ini", "\"" + text + "\"");
    }
    ExitCode Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "quillane-office");
        const Request request = ReadArguments(arguments);
        EXPECT_EQ(request.fault, "");
        Terminal terminal{.in = in,
                          .out = out,
                          .err = err,
                          .password =
                              [&](const std::string& prompt) {
                                  prompts.push_back(prompt);
                                  return std::string("secret");
                              },
                          .confirm = {},
                          .runLong = [&](const LongTask& task) { task(work); }};
        return RunMove(station.folder.path, request, terminal);
    }

    StationDatabase station;
    LongWork work;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    std::vector<std::string> prompts;
};

TEST_F(MoveCommand, DatabaseOnAServerIsNotMoved) {
    WriteConfig("Server=books;Database=Account1;UID=a;PWD=b");
    EXPECT_EQ(Run({"--move-to-server", "mill-sql", "--user", "gate"}), ExitCode::Refused);
    EXPECT_EQ(err.str(), "The station's database is on a database server already. Nothing has been "
                         "changed.\n");
}

TEST_F(MoveCommand, FaultsOfTheArgumentsAreReportedBeforeAPasswordIsAskedFor) {
    EXPECT_EQ(Run({"--move-to-server", "mill-sql"}), ExitCode::WrongArguments);
    EXPECT_EQ(Run({"--move-to-server", "mill-sql", "--user", "gate", "--port", "x"}),
              ExitCode::WrongArguments);
    EXPECT_EQ(Run({"--move-to-server", "mill-sql", "--user", "gate", "--database", "Mill"}),
              ExitCode::WrongArguments);
    EXPECT_EQ(prompts, std::vector<std::string>());
    EXPECT_EQ(err.str(),
              "The name that the station signs in with is missing: --user NAME. See --help.\n"
              "A port is a number from 1 to 65535. See --help.\n"
              "The database's name \"Mill\" has fewer than eight characters. The eighth "
              "character is the company number, as in Account1. See --help.\n");
}

TEST_F(MoveCommand, ServerThatDoesNotAnswerIsReportedAndTheOwnersPasswordIsAskedForFirst) {
    EXPECT_EQ(Run({"--move-to-server", "127.0.0.1", "--port", "1", "--user", "gate", "--sign-in",
                   "sa", "--yes"}),
              ExitCode::Refused);
    EXPECT_EQ(prompts, std::vector<std::string>({"Password of sa at the database server: ",
                                                 "Password of gate at the database server: "}));
    EXPECT_TRUE(err.str().ends_with("\nNothing has been changed.\n")) << err.str();
    EXPECT_EQ(station.folder.Read("Config.ini"), "\"Server=(embedded);Database=Account1\"");
}

} // namespace
} // namespace Quillane::Office
