#include "scale/PortSettingsDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sqlite3.h>
#include <unistd.h>

namespace Quillane::Testing {

PortSettingsDatabase::PortSettingsDatabase() {
    std::string folder = (std::filesystem::temp_directory_path() / "port-settings-XXXXXX").string();
    EXPECT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    Run("create table PortSettings (RegistryKey nvarchar(50) collate nocase,"
        " RegistryValue nvarchar(50))");
    Store(UsualRows());
    connection_.SetEmbeddedSupport({.folder = folder_.string(), .registerFunctions = {}});
    connection_.Open("Driver=SQL Server;Server=(embedded);Database=Account1");
}

PortSettingsDatabase::~PortSettingsDatabase() {
    connection_.Close();
    std::filesystem::remove_all(folder_);
}

PortSettingsDatabase::Rows PortSettingsDatabase::UsualRows() {
    return {{"PortName", "1"},
            {"PortSettings", "9600,n,8,1"},
            {"DataDirection", "Right"},
            {"DataLength", "6"},
            {"IsReversed", "0"}};
}

PortSettingsDatabase::Rows PortSettingsDatabase::With(std::string_view key,
                                                      std::string_view value) {
    Rows rows = UsualRows();
    for (auto& [name, text] : rows)
        if (name == key)
            text = value;
    return rows;
}

PortSettingsDatabase::Rows PortSettingsDatabase::Without(std::string_view key) {
    Rows rows = UsualRows();
    std::erase_if(rows, [&](const auto& row) { return row.first == key; });
    return rows;
}

void PortSettingsDatabase::Store(const Rows& rows) {
    std::string statements = "delete from PortSettings;";
    for (const auto& [key, value] : rows)
        statements += "insert into PortSettings values ('" + key + "', '" + value + "');";
    Run(statements);
}

void PortSettingsDatabase::Load(Recordset& rows) {
    if (rows.State() == adStateOpen)
        rows.Close();
    rows.Open("Select * from PortSettings", connection_, adOpenStatic, adLockReadOnly,
              adCmdUnspecified);
}

std::string PortSettingsDatabase::ValueOf(std::string_view key) {
    Recordset row = connection_.Execute(
        "Select RegistryValue from PortSettings where RegistryKey = '" + std::string(key) + "'");
    return row.Fields(0).Text();
}

void PortSettingsDatabase::Run(const std::string& statements) {
    sqlite3* file = nullptr;
    ASSERT_EQ(sqlite3_open((folder_ / "Account1.db").c_str(), &file), SQLITE_OK);
    sqlite3_busy_timeout(file, 5000);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(file, statements.c_str(), nullptr, nullptr, &error), SQLITE_OK) << error;
    sqlite3_close(file);
}

} // namespace Quillane::Testing
