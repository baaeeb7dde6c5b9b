#include "platform/host/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <filesystem>

namespace Quillane {
namespace {

TEST(ProgramFolder, IsWhereTheExecutableLies) {
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    EXPECT_EQ(ProgramFolder(),
              std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

TEST(ProgramFolder, CanBeReplacedForATrial) {
    SetProgramFolder("/a/folder/of/its/own");
    EXPECT_EQ(ProgramFolder(), "/a/folder/of/its/own");
    SetProgramFolder("");
    EXPECT_NE(ProgramFolder(), "/a/folder/of/its/own");
}

} // namespace
} // namespace Quillane
