#include "office/records/Settings.h"

#include "office/records/Texts.h"
#include "platform/ado/Transaction.h"
#include "platform/runtime/Text.h"

#include <array>
#include <optional>

namespace Quillane::Office {

namespace {

constexpr std::array companyKeys{CompanyName, CompanyAddress, CompanyPhone, CompanyEmail};
constexpr std::array<std::string_view, 5> lineKeys{"PortName", "PortSettings", "DataDirection",
                                                   "DataLength", "IsReversed"};

std::optional<std::string_view> KeptKey(const SettingsTable& table, std::string_view key) {
    for (const std::string_view kept : table.keys)
        if (EqualIgnoringCase(kept, Trim(key)))
            return kept;
    return std::nullopt;
}

std::string ValueOf(const Settings& settings, std::string_view key) {
    const auto found = settings.find(key);
    return found == settings.end() ? std::string() : found->second;
}

Settings ReadFrom(Recordset& rows, const SettingsTable& table) {
    Settings settings;
    for (; !rows.Eof(); rows.MoveNext())
        if (const auto key = KeptKey(table, rows.Fields(table.key).TextOrEmpty()))
            settings.emplace(*key, rows.Fields(table.value).TextOrEmpty());
    return settings;
}

std::string InQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

std::string DescribeChanges(const Settings& shown, const Settings& stored, const Settings& wanted) {
    std::string text;
    for (const auto& [key, value] : wanted) {
        if (ValueOf(stored, key) == ValueOf(shown, key))
            continue;
        text += "\n" + key + ": it was " + InQuotes(ValueOf(shown, key)) + ", it is now " +
                InQuotes(ValueOf(stored, key));
        if (value != ValueOf(shown, key))
            text += ", your entry is " + InQuotes(value);
    }
    return text;
}

/// Stores a value in the first row of its key and deletes the other rows of the key.
void Store(Recordset& rows, const SettingsTable& table, std::string_view key,
           const std::string& value) {
    bool isStored = false;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        if (!EqualIgnoringCase(Trim(rows.Fields(table.key).TextOrEmpty()), key))
            continue;
        if (isStored) {
            rows.Delete();
        } else {
            rows.Collect(table.value, value);
            rows.Update();
        }
        isStored = true;
    }
    if (isStored)
        return;
    rows.AddNew();
    rows.Collect(table.key, key);
    rows.Collect(table.value, value);
    rows.Update();
}

/// Locks the settings until the transaction ends, by an update that changes nothing.
void Lock(Connection& connection, const SettingsTable& table) {
    std::string keys;
    for (const std::string_view key : table.keys)
        keys += (keys.empty() ? "" : ", ") + SqlText(key);
    connection.Execute("Update " + std::string(table.table) + " Set " + std::string(table.value) +
                       " = " + std::string(table.value) + " Where " + std::string(table.key) +
                       " In (" + keys + ")");
}

} // namespace

const SettingsTable& CompanySettings() {
    static constexpr SettingsTable table{"Project_Registry", "registrykey", "value", companyKeys};
    return table;
}

const SettingsTable& LineSettingsTable() {
    static constexpr SettingsTable table{"PortSettings", "RegistryKey", "RegistryValue", lineKeys};
    return table;
}

Settings ReadSettings(Connection& connection, const SettingsTable& table) {
    Recordset rows = connection.Execute("Select * From " + std::string(table.table));
    return ReadFrom(rows, table);
}

std::string SaveSettings(Connection& connection, const SettingsTable& table, const Settings& shown,
                         const Settings& wanted) {
    Transaction transaction(connection);
    Lock(connection, table);
    Recordset rows;
    rows.Open("Select * From " + std::string(table.table), connection, adOpenStatic,
              adLockOptimistic);
    const Settings stored = ReadFrom(rows, table);
    if (std::string changes = DescribeChanges(shown, stored, wanted); !changes.empty())
        return "Another user has changed the settings in the meantime:" + changes +
               "\nNothing was written. Check the values and try again.";
    for (const auto& [key, value] : wanted)
        if (value != ValueOf(shown, key))
            Store(rows, table, key, value);
    transaction.Commit();
    return {};
}

} // namespace Quillane::Office
