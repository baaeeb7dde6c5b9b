#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {
class Connection;
}

namespace Quillane::Office {

/// One entry of a station's file, as it was shown and as it is wanted; none: no such entry.
struct StationEntry {
    std::string section; ///< "Ports"
    int number = 0;      ///< its key
    std::optional<std::string> shown;
    std::optional<std::string> wanted;
};

/// The value of an entry; none where the file has none. Sections are CompanyNames, Ports and
/// WholeBursts.
std::optional<std::string> ReadStationEntry(const std::string& folder, std::string_view section,
                                            int number);

/// Changes entries of the `Station.ini` in a folder, all or none; comments and everything else stay
/// as they are. The file is replaced whole. Gives the reason where one of the entries is no longer
/// as it was shown; then nothing is written.
std::string SaveStationEntries(const std::string& folder, std::span<const StationEntry> entries);

/// The entry of [CompanyNames] that the station takes for this database: its number is the eighth
/// character of the database's name, and 1 where that is none from 2 to 9.
int CompanyNameEntry(Connection& connection);

/// Stores the company's name where the station has it from: in `Station.ini`, and in the database
/// in capitals, as the next start of the station writes it. Gives the reason where it is refused or
/// somebody else has changed it meanwhile; then nothing is written.
std::string SaveCompanyName(Connection& connection, const std::string& folder,
                            const std::string& shown, const std::string& wanted);

} // namespace Quillane::Office
