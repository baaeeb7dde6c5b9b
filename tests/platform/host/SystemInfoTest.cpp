#include "platform/host/SystemInfo.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace Quillane {
namespace {

std::string ReleaseName() {
    std::ifstream file("/etc/os-release");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("PRETTY_NAME=\""))
            return line.substr(13, line.size() - 14);
    return "";
}

TEST(OsName, IsThePrettyNameOfTheRelease) {
    if (ReleaseName().empty())
        GTEST_SKIP() << "/etc/os-release has no PRETTY_NAME";
    EXPECT_EQ(SystemInfo::OsName(), ReleaseName());
}

} // namespace
} // namespace Quillane
