#include "office/records/Settings.h"

#include "OfficeDatabase.h"

#include <gtest/gtest.h>

namespace Quillane::Office {
namespace {

class OfficeSettings : public testing::Test {
protected:
    Settings Read(const SettingsTable& table) { return ReadSettings(database.other, table); }
    std::string Save(const SettingsTable& table, const Settings& shown, const Settings& wanted) {
        return SaveSettings(database.connection, table, shown, wanted);
    }
    long Rows(const std::string& condition) {
        return std::stol(database.Text("Select Count(*) From PortSettings Where " + condition));
    }

    OfficeDatabase database;
};

TEST_F(OfficeSettings, CompanyDetailsAreRead) {
    EXPECT_EQ(Read(CompanySettings()), (Settings{{"CompanyName", "Veltrane Flour Mills"},
                                                 {"CompanyAddress", "14 Canal Road, Okara"},
                                                 {"CompanyPhone", "044 555 0147"},
                                                 {"CompanyEmail", "gate@veltrane.example"}}));
}

TEST_F(OfficeSettings, OnlyChangedValuesAreWritten) {
    const Settings shown = Read(CompanySettings());
    Settings wanted = shown;
    wanted["CompanyPhone"] = "044 555 0199";
    std::vector<std::string> writes;
    database.connection.StatementObserver = [&](std::string_view text) {
        if (text.starts_with("UPDATE"))
            writes.emplace_back(text);
    };
    EXPECT_EQ(Save(CompanySettings(), shown, wanted), "");
    EXPECT_EQ(writes.size(), 1U);
    EXPECT_EQ(Read(CompanySettings()), wanted);
}

TEST_F(OfficeSettings, MissingRowIsAdded) {
    database.Run("Delete From PortSettings Where RegistryKey = 'DataLength'");
    const Settings shown = Read(LineSettingsTable());
    EXPECT_FALSE(shown.contains("DataLength"));
    Settings wanted = shown;
    wanted["DataLength"] = "5";
    EXPECT_EQ(Save(LineSettingsTable(), shown, wanted), "");
    EXPECT_EQ(Read(LineSettingsTable()), wanted);
}

TEST_F(OfficeSettings, RepeatedRowsAreReducedToOne) {
    database.Run("Insert Into PortSettings (RegistryKey, RegistryValue) Values ('portname', '2')");
    const Settings shown = Read(LineSettingsTable());
    Settings wanted = shown;
    wanted["PortName"] = "3";
    EXPECT_EQ(Save(LineSettingsTable(), shown, wanted), "");
    EXPECT_EQ(Rows("RegistryKey = 'PortName'"), 1);
    EXPECT_EQ(Read(LineSettingsTable()), wanted);
}

TEST_F(OfficeSettings, OtherRowsOfTheTableAreNotChanged) {
    database.Run("Insert Into Project_Registry (registrykey, value) Values ('Other', 'x')");
    const Settings shown = Read(CompanySettings());
    Settings wanted = shown;
    wanted["CompanyName"] = "Brellix";
    EXPECT_EQ(Save(CompanySettings(), shown, wanted), "");
    EXPECT_EQ(database.Text("Select value From Project_Registry Where registrykey = 'Other'"), "x");
}

TEST_F(OfficeSettings, ValueChangedByAnotherSessionIsReportedWithBothValues) {
    const Settings shown = Read(CompanySettings());
    database.Run("Update Project_Registry Set value = '1' Where registrykey = 'CompanyPhone'");
    Settings wanted = shown;
    wanted["CompanyPhone"] = "2";
    EXPECT_EQ(Save(CompanySettings(), shown, wanted),
              "Another user has changed the settings in the meantime:\n"
              "CompanyPhone: it was \"044 555 0147\", it is now \"1\", your entry is \"2\"\n"
              "Nothing was written. Check the values and try again.");
    EXPECT_EQ(Read(CompanySettings())["CompanyPhone"], "1");
}

} // namespace
} // namespace Quillane::Office
