#include "setup/StationSetUp.h"

#include "platform/forms/core/Text.h"
#include "platform/host/StationFile.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Numbers.h"

#include <vector>

namespace Quillane {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

void StoreCompanyName(const std::string& folder, const std::string& companyName) {
    std::string& current = TheStation().CompanyNames[1];
    if (current == companyName)
        return;
    const std::string path = folder + "/Station.ini";
    WriteWholeFile(path, WithCompanyName(ReadWholeFile(path), companyName));
    current = companyName;
}

// It may hold a password.
void WriteConfigFile(const std::string& folder, const std::string& fragment) {
    WriteWholeFile(folder + "/Config.ini", ConfigFileText(fragment), FileReaders::OwnerAndGroup);
}

std::string EmbeddedFragment() {
    return std::string("Server=(embedded);Database=") + EmbeddedDatabaseName;
}

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1);
        lines.emplace_back(text.substr(0, end + 1));
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::string Bare(std::string_view line) {
    return UpperCase(FromQt(ToQt(line).simplified().remove(' ')));
}

/// Where company 1 stands among the lines, and where its section begins; the number of lines where
/// there is none.
struct Place {
    std::size_t section;
    std::size_t entry;
};

Place FindCompanyName(const std::vector<std::string>& lines) {
    Place place{lines.size(), lines.size()};
    bool inSection = false;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const std::string_view text = lines[line];
        const bool isMarked = line == 0 && text.starts_with(byteOrderMark);
        const std::string bare = Bare(text.substr(isMarked ? byteOrderMark.size() : 0));
        if (bare.starts_with('['))
            inSection = bare == "[COMPANYNAMES]";
        if (inSection && bare.starts_with('['))
            place.section = line;
        else if (inSection && bare.starts_with("1="))
            place.entry = line;
    }
    return place;
}

} // namespace

std::string EmbeddedDatabasePath(const std::string& folder) {
    return folder + "/" + EmbeddedDatabaseName + ".db";
}

void SetUpStation(const std::string& folder, const NewDatabase& particulars) {
    CreateEmbeddedDatabase(EmbeddedDatabasePath(folder), particulars);
    StoreCompanyName(folder, particulars.companyName);
    WriteConfigFile(folder, EmbeddedFragment());
}

void AdoptDatabase(const std::string& folder, const std::string& companyName) {
    if (TheStation().CompanyNames[1].empty())
        StoreCompanyName(folder, companyName);
    WriteConfigFile(folder, EmbeddedFragment());
}

void PointToSqlServer(const std::string& folder, const SqlServerPlace& place,
                      const std::string& newName, const std::string& storedName) {
    if (!newName.empty())
        StoreCompanyName(folder, newName);
    else if (TheStation().CompanyNames[1].empty())
        StoreCompanyName(folder, storedName);
    WriteConfigFile(folder, ConfigFragment(place, DriverOfThisSystem()));
}

std::string WithCompanyName(std::string_view stationText, std::string_view companyName) {
    std::vector<std::string> lines = Lines(stationText);
    const std::string entry = "1=" + std::string(companyName) + "\n";
    const Place place = FindCompanyName(lines);
    if (!lines.empty() && !lines.back().ends_with('\n'))
        lines.back() += '\n';
    if (place.entry < lines.size())
        lines[place.entry] = entry;
    else if (place.section < lines.size())
        lines[place.section] += entry;
    else
        lines.push_back((lines.empty() ? "" : "\n") + std::string("[CompanyNames]\n") + entry);
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

} // namespace Quillane
