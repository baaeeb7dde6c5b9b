#include "platform/host/UserSettings.h"

#include "platform/runtime/Failure.h"
#include "station/FreshFolder.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>

namespace Quillane {
namespace {

/// Gives each test a new configuration folder.
class UserSettings : public testing::Test {
protected:
    void SetUp() override { ::setenv("XDG_CONFIG_HOME", folder.path.c_str(), 1); }
    void TearDown() override { ::unsetenv("XDG_CONFIG_HOME"); }

    void Damage(const std::string& text) {
        SaveSetting("Mill", "Printer", "Page", "White");
        std::ofstream(SettingsFile("Mill"), std::ios::binary) << text;
    }

    FreshFolder folder;
};

TEST_F(UserSettings, MissingEntryGivesTheDefault) {
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", "White"), "White");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", ""), "");
}

TEST_F(UserSettings, StoredValueIsReadBack) {
    SaveSetting("Mill", "Printer", "Page", "Printed");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", "White"), "Printed");
    SaveSetting("Mill", "Printer", "Page", "");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", "White"), "");
}

TEST_F(UserSettings, ApplicationsSectionsAndKeysAreSeparate) {
    SaveSetting("Mill", "Printer", "Page", "one");
    SaveSetting("Gate", "Printer", "Page", "two");
    SaveSetting("Mill", "Scale", "Page", "three");
    SaveSetting("Mill", "Printer", "page", "four");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", ""), "one");
    EXPECT_EQ(GetSetting("Gate", "Printer", "Page", ""), "two");
    EXPECT_EQ(GetSetting("Mill", "Scale", "Page", ""), "three");
    EXPECT_EQ(GetSetting("Mill", "Printer", "page", ""), "four");
}

TEST_F(UserSettings, ValueIsWrittenImmediately) {
    SaveSetting("Mill", "Printer", "Page", "Printed");
    EXPECT_TRUE(SettingsFile("Mill").starts_with(folder.path + "/"));
    std::ifstream file(SettingsFile("Mill"));
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_NE(text.find("Page=Printed"), std::string::npos) << text;
}

class AnyText : public UserSettings, public testing::WithParamInterface<std::string> {};

TEST_P(AnyText, CanBeAValue) {
    SaveSetting("Mill", "Printer", "Page", GetParam());
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", "missing"), GetParam());
}

TEST_P(AnyText, CanBeAName) {
    if (GetParam().empty())
        return;
    SaveSetting(GetParam(), GetParam(), GetParam(), "kept");
    EXPECT_EQ(GetSetting(GetParam(), GetParam(), GetParam(), ""), "kept");
    EXPECT_TRUE(SettingsFile(GetParam()).starts_with(folder.path + "/"));
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, AnyText,
                         testing::Values("", "plain", "two words", " blanks around ", "a,b, c",
                                         "a;b", "\"quoted\"", "=", "[section]",
                                         "line\r\nbreak\ttab", "@Invalid()", "@Variant(x)", "@@",
                                         "100%", "%41", "back\\slash", "slash/es", "../up", ".",
                                         "General", "سفید کاغذ", "Málaga",
                                         std::string("nul\0byte", 8)));

class DamagedStore : public UserSettings, public testing::WithParamInterface<std::string> {};

TEST_P(DamagedStore, IsReportedAndNotChanged) {
    Damage(GetParam());
    for (const auto& use :
         {std::function<void()>([] { GetSetting("Mill", "Printer", "Page", ""); }),
          std::function<void()>([] { SaveSetting("Mill", "Printer", "Page", "Printed"); })}) {
        const Failure failure = FailureOf(use);
        EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
        EXPECT_EQ(failure.Description(),
                  "The settings file " + SettingsFile("Mill") +
                      " is damaged. Rename it; the program then starts with the default choices.");
    }
    std::ifstream file(SettingsFile("Mill"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), GetParam());
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, DamagedStore,
                         testing::Values(std::string(64, '\0'), "[Printer]\nPage\n",
                                         "\x01\x02 rubbish \xFF\n", "[Printer\nPage=White\n",
                                         "Page=White\n", "[Printer]\n=White\n", "[]\nPage=White\n",
                                         "[Printer]\nPage=White\nPage=Printed\n"));

TEST_F(UserSettings, UnreadableFileFails) {
    std::filesystem::create_directories(SettingsFile("Mill"));
    const Failure failure = FailureOf([] { GetSetting("Mill", "Printer", "Page", ""); });
    EXPECT_EQ(failure.Description(), "The settings file " + SettingsFile("Mill") +
                                         " cannot be read. Check the rights of this user.");
}

TEST_F(UserSettings, UnwritableFileFails) {
    folder.Write("Mill", "a file where the folder should be");
    const Failure failure = FailureOf([] { SaveSetting("Mill", "Printer", "Page", "White"); });
    EXPECT_EQ(failure.Number(), FailureNumber::PathAccess);
    EXPECT_EQ(failure.Description(),
              "The settings file " + SettingsFile("Mill") + " cannot be written: Not a directory.");
}

TEST_F(UserSettings, ByteOrderMarkIsIgnored) {
    Damage("\xEF\xBB\xBF[Printer]\nPage=Printed\n");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", "White"), "Printed");
    SaveSetting("Mill", "Printer", "Page", "White");
    EXPECT_EQ(GetSetting("Mill", "Printer", "Page", ""), "White");
}

TEST_F(UserSettings, EmptyNameIsRefused) {
    EXPECT_EQ(FailureOf([] { GetSetting("", "Printer", "Page", ""); }).Number(),
              FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([] { SaveSetting("Mill", "", "Page", ""); }).Number(),
              FailureNumber::InvalidCall);
    EXPECT_EQ(FailureOf([] { SaveSetting("Mill", "Printer", "", ""); }).Number(),
              FailureNumber::InvalidCall);
}

} // namespace
} // namespace Quillane
