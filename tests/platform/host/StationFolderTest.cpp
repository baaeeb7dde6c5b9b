#include "platform/host/StationFolder.h"

#include "station/FreshFolder.h"
#include "support/FailureOf.h"
#include "support/Nobody.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillane {
namespace {

/// An existing folder for each source; the program folder holds a Config.ini.
class StationFolderTest : public testing::Test {
protected:
    StationFolderTest() {
        for (std::string* folder :
             {&sources.option, &sources.variable, &sources.program, &sources.system}) {
            static const char* const names[] = {"option", "variable", "program", "system"};
            *folder = fresh.File(names[folders_++]);
            std::filesystem::create_directory(*folder);
        }
        fresh.Write("program/Config.ini", "Server=(embedded);Database=Account1\n");
    }

    FreshFolder fresh;
    StationFolderSources sources;

private:
    std::size_t folders_ = 0;
};

TEST_F(StationFolderTest, OptionHasPriorityOverTheOtherSources) {
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("option"));
}

TEST_F(StationFolderTest, VariableIsUsedWithoutTheOption) {
    sources.option = "";
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("variable"));
}

TEST_F(StationFolderTest, ProgramFolderIsUsedIfItHoldsAConfigFile) {
    sources.option = sources.variable = "";
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("program"));
}

TEST_F(StationFolderTest, SystemFolderIsUsedIfTheProgramFolderHoldsNoConfigFile) {
    sources.option = sources.variable = "";
    std::filesystem::remove(fresh.File("program/Config.ini"));
    fresh.Write("system/Config.ini", "");
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("system"));
}

TEST_F(StationFolderTest, NamedFolderIsUsedEvenIfAnotherHoldsTheConfigFile) {
    fresh.Write("system/Config.ini", "");
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("option"));
    sources.option = fresh.File("missing");
    EXPECT_EQ(ChooseStationFolder(sources), fresh.File("missing"));
}

TEST_F(StationFolderTest, PathIsAbsoluteWithoutATrailingSeparator) {
    const std::string before = std::filesystem::current_path();
    std::filesystem::current_path(fresh.path);
    const std::string here = std::filesystem::current_path();
    for (const char* given : {"option", "option/", "./option//", "program/../option"}) {
        sources.option = given;
        EXPECT_EQ(ChooseStationFolder(sources), here + "/option") << given;
    }
    std::filesystem::current_path(before);
}

TEST_F(StationFolderTest, SourcesComeFromArgumentsEnvironmentAndExecutable) {
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    ::setenv("QUILLANE_STATION", "/gate/north", 1);
    const StationFolderSources found = SourcesOfThisProcess("/gate/south");
    ::unsetenv("QUILLANE_STATION");
    EXPECT_EQ(found.option, "/gate/south");
    EXPECT_EQ(found.variable, "/gate/north");
    EXPECT_EQ(found.program, std::filesystem::read_symlink("/proc/self/exe").parent_path());
    EXPECT_EQ(found.system, "/var/lib/quillane");
    EXPECT_EQ(SourcesOfThisProcess("").variable, "");
}

TEST_F(StationFolderTest, FolderNameMayHoldAnyCharacters) {
    for (const char* name : {"gate north", " blanks ", "گیٹ شمالی", "comma, \"quote\" 'n' %41;"}) {
        std::filesystem::create_directory(fresh.File(name));
        sources.option = fresh.File(name);
        EXPECT_EQ(ChooseStationFolder(sources), fresh.File(name));
        EXPECT_NO_THROW(CheckStationFolder(fresh.File(name))) << name;
        fresh.Write(std::string(name) + "/Config.ini", "");
        EXPECT_NO_THROW(CheckStationFolder(fresh.File(name))) << name;
    }
}

TEST_F(StationFolderTest, MissingFolderIsRefused) {
    const Failure failure = FailureOf([&] { CheckStationFolder(fresh.File("missing")); });
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_EQ(failure.Description(), "The station folder " + fresh.File("missing") +
                                         " does not exist. Create it, or name another folder with "
                                         "the option --station.");
    std::filesystem::create_symlink(fresh.File("missing"), fresh.File("link"));
    EXPECT_EQ(FailureOf([&] { CheckStationFolder(fresh.File("link")); }).Number(), 75);
}

TEST_F(StationFolderTest, FileIsRefused) {
    EXPECT_EQ(FailureOf([&] {
                  fresh.Write("file", "");
                  CheckStationFolder(fresh.File("file"));
              }).Description(),
              "The station folder " + fresh.File("file") +
                  " is not a folder. Name a folder with the option --station.");
}

TEST_F(StationFolderTest, FolderWithoutRightsIsRefused) {
    ::chmod(fresh.File("option").c_str(), 0);
    // In a child process without root rights, since root may enter every folder.
    const auto enterAsNobody = [&] {
        BecomeNobody();
        std::fputs(FailureOf([&] { CheckStationFolder(sources.option); }).Description().c_str(),
                   stderr);
        ::_exit(0);
    };
    EXPECT_EXIT(enterAsNobody(), testing::ExitedWithCode(0),
                "The station folder .*option cannot be opened: this user has no rights to it\\.");
}

} // namespace
} // namespace Quillane
