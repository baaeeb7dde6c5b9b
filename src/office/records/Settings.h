#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A table that stores settings as rows of a key and a value, and the keys that the office edits.
struct SettingsTable {
    std::string_view table;
    std::string_view key;
    std::string_view value;
    std::span<const std::string_view> keys;
};

/// The name, address, phone number and e-mail address of the company.
const SettingsTable& CompanySettings();
inline constexpr std::string_view CompanyName = "CompanyName";
inline constexpr std::string_view CompanyAddress = "CompanyAddress";
inline constexpr std::string_view CompanyPhone = "CompanyPhone";
inline constexpr std::string_view CompanyEmail = "CompanyEmail";

/// The five settings of the serial line to the indicator.
const SettingsTable& LineSettingsTable();

/// Values by key. A key without a row is missing. If a key has several rows, the first one is used.
using Settings = std::map<std::string, std::string, std::less<>>;

Settings ReadSettings(Connection& connection, const SettingsTable& table);

/// Stores the differences between `shown` and `wanted` in one transaction. A missing row is added;
/// repeated rows are reduced to one. Returns the empty text, or, if another session has changed one
/// of these values since it was read, a message with both values; then nothing is written.
std::string SaveSettings(Connection& connection, const SettingsTable& table, const Settings& shown,
                         const Settings& wanted);

} // namespace Quillane::Office
