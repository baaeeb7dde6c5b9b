#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A table that keeps settings as rows of a key and a value, and those of its keys that are kept
/// here.
struct SettingsTable {
    std::string_view table;
    std::string_view key;
    std::string_view value;
    std::span<const std::string_view> keys;
};

/// Name, address, phone and e-mail of the company.
const SettingsTable& CompanySettings();
inline constexpr std::string_view CompanyName = "CompanyName";
inline constexpr std::string_view CompanyAddress = "CompanyAddress";
inline constexpr std::string_view CompanyPhone = "CompanyPhone";
inline constexpr std::string_view CompanyEmail = "CompanyEmail";

/// The five settings of the indicator's line.
const SettingsTable& LineSettingsTable();

/// Values by key; a key without a row has none. Of doubled rows the first counts.
using Settings = std::map<std::string, std::string, std::less<>>;

Settings ReadSettings(Connection& connection, const SettingsTable& table);

/// Stores what differs between `shown` and `wanted`, in one transaction; a missing row is added,
/// and doubled rows become one. Gives the reason where another session has changed one of these
/// values meanwhile, with both values; then nothing is written.
std::string SaveSettings(Connection& connection, const SettingsTable& table, const Settings& shown,
                         const Settings& wanted);

} // namespace Quillane::Office
