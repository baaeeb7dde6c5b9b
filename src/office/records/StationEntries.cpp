#include "office/records/StationEntries.h"

#include "data/modCommon.h"
#include "office/records/Settings.h"
#include "office/records/Texts.h"
#include "platform/ado/Connection.h"
#include "platform/host/Files.h"
#include "platform/host/StationFile.h"
#include "platform/host/StationText.h"
#include "platform/host/WholeFile.h"

#include <QFile>

#include <array>

namespace Quillane::Office {

namespace {

std::string PathIn(const std::string& folder) {
    return folder + "/Station.ini";
}

std::optional<std::string> EntryOf(const StationFile& station, std::string_view section,
                                   int number) {
    if (section == "WholeBursts")
        return station.WholeBursts.contains(number) ? std::optional<std::string>("yes")
                                                    : std::nullopt;
    if (section == "Ports") {
        const auto found = station.Ports.find(number);
        return found == station.Ports.end() ? std::nullopt : std::optional(found->second);
    }
    const std::string& name = station.CompanyNames[static_cast<std::size_t>(number)];
    return name.empty() ? std::nullopt : std::optional(name);
}

std::string Shown(const std::optional<std::string>& value) {
    return value ? "\"" + *value + "\"" : "no entry";
}

std::string DescribeChange(const StationEntry& entry, const std::optional<std::string>& stored) {
    return "Another user has changed Station.ini in the meantime: [" + entry.section + "] " +
           std::to_string(entry.number) + " was " + Shown(entry.shown) + ", it is now " +
           Shown(stored) + ", your entry is " + Shown(entry.wanted) +
           ". Nothing was written. Check the entry and try again.";
}

/// Restores the file unless `Keep` has been called.
class FileGuard {
public:
    explicit FileGuard(std::string path)
        : path_(std::move(path)), wasThere_(FileExists(path_)), bytes_(ReadWholeFile(path_)) {}
    ~FileGuard() {
        if (isKept_)
            return;
        try {
            if (wasThere_)
                WriteWholeFile(path_, bytes_);
            else
                QFile::remove(QString::fromStdString(path_));
        } catch (const std::exception&) {
            // The first failure is being reported; the next start writes the name in the file.
        }
    }
    FileGuard(const FileGuard&) = delete;
    FileGuard& operator=(const FileGuard&) = delete;
    void Keep() { isKept_ = true; }

private:
    std::string path_;
    bool wasThere_;
    std::string bytes_;
    bool isKept_ = false;
};

} // namespace

std::optional<std::string> ReadStationEntry(const std::string& folder, std::string_view section,
                                            int number) {
    return EntryOf(StationFile::Read(PathIn(folder)), section, number);
}

std::string SaveStationEntries(const std::string& folder, std::span<const StationEntry> entries) {
    const StationFile stored = StationFile::Read(PathIn(folder));
    std::string text = ReadWholeFile(PathIn(folder));
    bool differs = false;
    for (const StationEntry& entry : entries) {
        const auto now = EntryOf(stored, entry.section, entry.number);
        if (now != entry.shown)
            return DescribeChange(entry, now);
        if (entry.wanted == now)
            continue;
        differs = true;
        const std::string key = std::to_string(entry.number);
        text = entry.wanted ? WithStationEntry(text, entry.section, key, *entry.wanted)
                            : WithoutStationEntry(text, entry.section, key);
    }
    if (differs)
        WriteWholeFile(PathIn(folder), text);
    return {};
}

int CompanyNameEntry(Connection& connection) {
    constexpr qsizetype eighth = 7;
    const QString name = QString::fromStdString(connection.DefaultDatabase());
    const QChar character = name.size() > eighth ? name[eighth] : QChar();
    return character >= '2' && character <= '9' ? character.digitValue() : 1;
}

std::string SaveCompanyName(Connection& connection, const std::string& folder,
                            const std::string& shown, const std::string& wanted) {
    if (wanted.empty())
        return "The company name is empty. Fill it in.";
    // The station inserts the name into a statement unchanged.
    if (wanted.find('\'') != std::string::npos)
        return "The company name contains an apostrophe. Remove it.";
    if (HoldsControlCharacter(wanted))
        return "The company name contains a line break or another control character. Remove it.";
    const int number = CompanyNameEntry(connection);
    FileGuard file(PathIn(folder));
    const StationEntry entry{.section = "CompanyNames",
                             .number = number,
                             .shown = ReadStationEntry(folder, "CompanyNames", number),
                             .wanted = wanted};
    if (std::string why = SaveStationEntries(folder, std::array{entry}); !why.empty())
        return why;
    std::string why =
        SaveSettings(connection, CompanySettings(), {{std::string(CompanyName), shown}},
                     {{std::string(CompanyName), Capitals(wanted)}});
    if (why.empty())
        file.Keep();
    return why;
}

} // namespace Quillane::Office
