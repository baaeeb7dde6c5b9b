#include "shell/CommandLine.h"

#include "platform/host/Version.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

CommandLine Read(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "quillane");
    return ReadCommandLine(arguments);
}

TEST(CommandLine, NoArgumentsStartTheProgram) {
    const CommandLine command = Read({});
    EXPECT_EQ(command.station, "");
    EXPECT_EQ(command.answer, "");
    EXPECT_EQ(command.fault, "");
}

TEST(CommandLine, StationFolderIsReadInBothForms) {
    for (const std::vector<std::string>& form :
         {std::vector<std::string>{"--station", "/gate/گیٹ north"},
          std::vector<std::string>{"--station=/gate/گیٹ north"}}) {
        EXPECT_EQ(Read(form).station, "/gate/گیٹ north");
        EXPECT_EQ(Read(form).fault, "");
    }
}

TEST(CommandLine, VersionIsAnswered) {
    for (const char* option : {"--version", "-v"})
        EXPECT_EQ(Read({option}).answer, "Quillane " + std::string(QuillaneVersion()) + "\n");
    EXPECT_EQ(QuillaneVersion(), PROJECT_VERSION);
}

TEST(CommandLine, HelpListsTheOptions) {
    for (const char* option : {"--help", "-h"}) {
        const std::string help = Read({option}).answer;
        for (const char* named : {"--station", "--help", "--version", "QUILLANE_STATION"})
            EXPECT_NE(help.find(named), std::string::npos) << named;
    }
}

TEST(CommandLine, UnknownArgumentsAreRefused) {
    EXPECT_EQ(Read({"--staton", "/gate"}).fault, "Unknown option 'staton'.");
    EXPECT_EQ(Read({"/gate"}).fault, "Unexpected argument '/gate'.");
    EXPECT_EQ(Read({"--station"}).fault, "Missing value after '--station'.");
    EXPECT_EQ(Read({"--station="}).fault, "The option --station needs a folder.");
    EXPECT_EQ(Read({"--station", ""}).fault, "The option --station needs a folder.");
}

// An application would remove them from the arguments.
TEST(CommandLine, HelpAndVersionWorkWithOptionsOfQt) {
    EXPECT_EQ(Read({"-platform", "xcb", "--station", "/gate"}).answer, "");
    EXPECT_EQ(Read({"-style", "fusion", "-stylesheet", "x"}).answer, "");
    EXPECT_NE(Read({"-platform", "xcb", "--version"}).answer, "");
}

} // namespace
} // namespace Quillane
