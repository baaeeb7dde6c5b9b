#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// A change of one entry of `Station.ini`. No value means no entry.
struct StationEntry {
    std::string section; ///< "Ports"
    int number = 0;      ///< its key
    std::optional<std::string> shown;
    std::optional<std::string> wanted;
};

/// Returns the value of an entry, if it exists. Sections are CompanyNames, Ports and WholeBursts.
std::optional<std::string> ReadStationEntry(const std::string& folder, std::string_view section,
                                            int number);

/// Changes entries of the `Station.ini` in a folder, all or none. Comments and everything else are
/// kept. The file is replaced as a whole. Returns the empty text, or a message if one of the
/// entries has been changed since it was read; then nothing is written.
std::string SaveStationEntries(const std::string& folder, std::span<const StationEntry> entries);

/// The entry of [CompanyNames] that the station uses for this database: the eighth character of the
/// database name, or 1 if it is not a digit from 2 to 9.
int CompanyNameEntry(Connection& connection);

/// Stores the company name in `Station.ini` and, in capitals, in the database, as the next start of
/// the station would do. Returns the empty text, or the reason if the name is invalid or another
/// user has changed it; then nothing is written.
std::string SaveCompanyName(Connection& connection, const std::string& folder,
                            const std::string& shown, const std::string& wanted);

} // namespace Quillane::Office
