#include "scale/PortSettingsDatabase.h"

#include <algorithm>

namespace Quillane::Testing {

PortSettingsDatabase::PortSettingsDatabase()
    : StationDatabase(ParticularsOf("Veltrane", "ali", "wheat")) {
    Open(connection_);
}

PortSettingsDatabase::Settings PortSettingsDatabase::UsualRows() {
    return {{"PortName", "1"},
            {"PortSettings", "9600,n,8,1"},
            {"DataDirection", "Right"},
            {"DataLength", "6"},
            {"IsReversed", "0"}};
}

PortSettingsDatabase::Settings PortSettingsDatabase::With(std::string_view key,
                                                          std::string_view value) {
    Settings rows = UsualRows();
    for (auto& [name, text] : rows)
        if (name == key)
            text = value;
    return rows;
}

PortSettingsDatabase::Settings PortSettingsDatabase::Without(std::string_view key) {
    Settings rows = UsualRows();
    std::erase_if(rows, [&](const auto& row) { return row.first == key; });
    return rows;
}

void PortSettingsDatabase::Store(const Settings& rows) {
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

} // namespace Quillane::Testing
