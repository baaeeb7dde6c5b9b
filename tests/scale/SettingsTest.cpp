#include "scale/Settings.h"

#include "platform/ado/Recordset.h"
#include "platform/runtime/Failure.h"
#include "scale/PortSettingsDatabase.h"
#include "support/FailureOf.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using Testing::PortSettingsDatabase;

class SettingsTest : public testing::Test {
protected:
    LiveReading ReadFrom(const PortSettingsDatabase::Settings& stored) {
        database.Store(stored);
        database.Load(rows);
        return ReadLiveReading(rows);
    }

    std::optional<std::string> SingleFrom(const PortSettingsDatabase::Settings& stored,
                                          const PortSetting& setting) {
        database.Store(stored);
        database.Load(rows);
        return SingleValue(rows, setting);
    }

    PortSettingsDatabase database;
    Recordset rows;
};

TEST(LineSettingsText, IsComposedFromTheTextsOfTheLists) {
    EXPECT_EQ(ComposeLineSettings("2400 ", "None ", "8", "1"), "2400,n,8,1");
    EXPECT_EQ(ComposeLineSettings("9600", "Even ", " 7 ", "1.5"), "9600,e,7,1.5");
    EXPECT_EQ(ComposeLineSettings("110 ", "Space", "5", "2"), "110,s,5,2");
    EXPECT_EQ(ComposeLineSettings("300 ", "Mark ", "6", " 1 "), "300,m,6,1");
    EXPECT_EQ(ComposeLineSettings("", "", "", ""), ",,,");
}

TEST(UpdateStatement, PutsTheValueInUnchanged) {
    EXPECT_EQ(UpdateStatement(PortNameSetting, "1"),
              "Update PortSettings set RegistryValue='1' where registrykey = 'PortName'");
    EXPECT_EQ(UpdateStatement(LineSetting, "2400,n,8,1"),
              "Update PortSettings set RegistryValue='2400,n,8,1' where registrykey = "
              "'PortSettings'");
    EXPECT_EQ(UpdateStatement(DirectionSetting, "Left"),
              "Update PortSettings set RegistryValue='Left' where registrykey = 'DataDirection'");
    EXPECT_EQ(UpdateStatement(LengthSetting, "6"),
              "Update PortSettings set RegistryValue='6' where registrykey = 'DataLength'");
    EXPECT_EQ(UpdateStatement(ReversalSetting, "o'clock"),
              "Update PortSettings set RegistryValue='o'clock' where registrykey = 'IsReversed'");
}

TEST(SettingFilters, KeepTheirSpelling) {
    EXPECT_EQ(PortNameSetting.filter, "RegistryKey = 'PortName'");
    EXPECT_EQ(LineSetting.filter, "RegistryKey = 'PortSettings'");
    EXPECT_EQ(DirectionSetting.filter, "Registrykey = 'DataDirection'");
    EXPECT_EQ(LengthSetting.filter, "Registrykey = 'DataLength'");
    EXPECT_EQ(ReversalSetting.filter, "Registrykey = 'IsReversed'");
}

TEST_F(SettingsTest, AreWrittenByTheStatementsAndReadBack) {
    for (const PortSetting* setting :
         {&PortNameSetting, &LineSetting, &DirectionSetting, &LengthSetting, &ReversalSetting}) {
        database.Session().Execute(UpdateStatement(*setting, "new"));
        EXPECT_EQ(database.ValueOf(setting->name), "new");
        database.Load(rows);
        EXPECT_EQ(SingleValue(rows, *setting), "new") << setting->name;
    }
}

TEST_F(SettingsTest, MissingRowIsNotAddedByAnUpdate) {
    database.Store(PortSettingsDatabase::Without("DataLength"));
    database.Session().Execute(UpdateStatement(LengthSetting, "6"));
    database.Load(rows);
    EXPECT_EQ(rows.RecordCount(), 4);
}

TEST_F(SettingsTest, ValueNeedsExactlyOneRow) {
    auto doubled = PortSettingsDatabase::UsualRows();
    doubled.emplace_back("portname", "2");
    EXPECT_EQ(SingleFrom(PortSettingsDatabase::UsualRows(), PortNameSetting), "1");
    EXPECT_EQ(SingleFrom(PortSettingsDatabase::Without("PortName"), PortNameSetting), std::nullopt);
    EXPECT_EQ(SingleFrom(doubled, PortNameSetting), std::nullopt);
    EXPECT_EQ(SingleFrom({}, LineSetting), std::nullopt);
}

TEST_F(SettingsTest, GiveTheSettingsOfTheDecoding) {
    const LiveReading reading = ReadFrom(PortSettingsDatabase::UsualRows());
    EXPECT_EQ(reading.direction, "Right");
    EXPECT_EQ(reading.length, 6);
    EXPECT_FALSE(reading.reversed);
}

TEST_F(SettingsTest, KeepTheDirectionUnchanged) {
    EXPECT_EQ(ReadFrom(PortSettingsDatabase::With("DataDirection", "right")).direction, "right");
    EXPECT_EQ(ReadFrom(PortSettingsDatabase::With("DataDirection", "")).direction, "");
    EXPECT_EQ(ReadFrom(PortSettingsDatabase::Without("DataDirection")).direction, std::nullopt);
    auto doubled = PortSettingsDatabase::UsualRows();
    doubled.emplace_back("DataDirection", "Left");
    EXPECT_EQ(ReadFrom(doubled).direction, std::nullopt);
}

TEST_F(SettingsTest, NullDirectionIsLeftAndAnyOtherNullFails) {
    const auto makeNull = [&](const std::string& key) {
        database.Store(PortSettingsDatabase::UsualRows());
        database.Run("Update PortSettings Set RegistryValue = Null Where RegistryKey = '" + key +
                     "'");
        database.Load(rows);
    };
    makeNull("DataDirection");
    EXPECT_EQ(ReadLiveReading(rows).direction, "");
    for (const char* key : {"DataLength", "IsReversed"}) {
        makeNull(key);
        EXPECT_EQ(FailureNumberOf([&] { ReadLiveReading(rows); }), 94) << key;
    }
    for (const PortSetting* setting : {&PortNameSetting, &LineSetting}) {
        makeNull(std::string(setting->name));
        EXPECT_EQ(FailureNumberOf([&] { SingleValue(rows, *setting); }), 94) << setting->name;
    }
}

TEST_F(SettingsTest, LengthIsReadLeniently) {
    const std::pair<const char*, double> cases[] = {
        {"0", 0}, {"9", 9}, {"", 0}, {"six", 0}, {" 4 digits", 4}, {"-1", -1}, {"2.5", 2.5}};
    for (const auto& [text, length] : cases)
        EXPECT_EQ(ReadFrom(PortSettingsDatabase::With("DataLength", text)).length, length) << text;
}

TEST_F(SettingsTest, LengthIsNeededOnlyWithADirection) {
    EXPECT_EQ(FailureNumberOf([&] { ReadFrom(PortSettingsDatabase::Without("DataLength")); }),
              3021);
    EXPECT_FALSE(ReadFrom({{"IsReversed", "0"}}).direction);
}

TEST_F(SettingsTest, OnlyTheNumberOneReverses) {
    const std::pair<const char*, bool> cases[] = {{"0", false},  {"1", true},   {"2", false},
                                                  {"-1", false}, {"1.0", true}, {" 1 ", true}};
    for (const auto& [text, reversed] : cases)
        EXPECT_EQ(ReadFrom(PortSettingsDatabase::With("IsReversed", text)).reversed, reversed)
            << text;
}

TEST_F(SettingsTest, ReversalThatIsNotANumberFails) {
    for (const char* text : {"", "yes", "True", "1x"})
        EXPECT_EQ(
            FailureNumberOf([&] { ReadFrom(PortSettingsDatabase::With("IsReversed", text)); }), 13)
            << text;
    EXPECT_EQ(FailureNumberOf([&] { ReadFrom(PortSettingsDatabase::Without("IsReversed")); }),
              3021);
}

TEST_F(SettingsTest, FirstOfSeveralLengthsAndReversalsIsUsed) {
    auto doubled = PortSettingsDatabase::UsualRows();
    doubled.emplace_back("DataLength", "3");
    doubled.emplace_back("IsReversed", "1");
    const LiveReading reading = ReadFrom(doubled);
    EXPECT_EQ(reading.length, 6);
    EXPECT_FALSE(reading.reversed);
}

TEST_F(SettingsTest, AreReadInTheOrderDirectionLengthReversal) {
    // Both values are invalid; the one that is read first fails.
    auto wrong = PortSettingsDatabase::Without("DataLength");
    wrong.back().second = "yes";
    EXPECT_EQ(FailureNumberOf([&] { ReadFrom(wrong); }), 3021);
}

} // namespace
} // namespace Quillane
