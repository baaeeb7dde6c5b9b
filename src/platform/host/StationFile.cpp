#include "platform/host/StationFile.h"

#include "platform/host/Utf8.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>

namespace Quillane {

namespace {

constexpr int firstPort = 1;
constexpr int lastPort = 32767;
constexpr int mostBackups = 9999;
constexpr int mostDays = 366;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Reads the lines of a station file in order into a `StationFile` and counts them for messages.
class LineReader {
public:
    LineReader(const std::string& path, StationFile& station) : path_(path), station_(station) {}

    void Read(std::string_view line) {
        ++number_;
        if (!IsUtf8(line))
            Refuse("The text is not UTF-8. Save the file as UTF-8.");
        const std::string_view content = TrimWhiteSpace(line);
        if (content.empty() || content.front() == ';' || content.front() == '#')
            return;
        if (content.front() == '[')
            EnterSection(content);
        else
            ReadEntry(content);
    }

private:
    [[noreturn]] void Refuse(std::string_view reason) const {
        throw Failure(FailureNumber::InvalidCall,
                      "The station file " + path_ + " has an error in line " +
                          std::to_string(number_) + ": " + std::string(reason));
    }

    void EnterSection(std::string_view line) {
        if (line.back() != ']')
            Refuse("The closing bracket of the section is missing.");
        section_ = UpperCase(TrimWhiteSpace(line.substr(1, line.size() - 2)));
        if (section_ != "STATION" && section_ != "COMPANYNAMES" && section_ != "PORTS" &&
            section_ != "WHOLEBURSTS" && section_ != "BACKUP")
            Refuse("The section " + std::string(line) + " is unknown.");
    }

    void ReadEntry(std::string_view line) {
        const auto equals = line.find('=');
        if (equals == std::string_view::npos)
            Refuse("The line is neither a section nor key=value.");
        if (section_.empty())
            Refuse("The key is not in a section.");
        const std::string key = UpperCase(TrimWhiteSpace(line.substr(0, equals)));
        if (!seen_.insert(section_ + "=" + key).second)
            Refuse("The key " + key + " occurs twice.");
        Store(key, std::string(TrimWhiteSpace(line.substr(equals + 1))));
    }

    void Store(const std::string& key, std::string value) {
        if (section_ == "COMPANYNAMES")
            station_.CompanyNames[static_cast<std::size_t>(Whole(key, 1, 9))] = std::move(value);
        else if (section_ == "PORTS")
            StorePort(Whole(key, firstPort, lastPort), std::move(value));
        else if (section_ == "WHOLEBURSTS")
            StoreWholeBursts(Whole(key, firstPort, lastPort), UpperCase(value));
        else if (section_ == "BACKUP")
            StoreBackup(key, std::move(value));
        else if (key == "STATIONROLE")
            station_.StationRole = std::move(value);
        else if (key == "ASKCOMPANYNAME")
            station_.AskCompanyName = Whole(value, -32768, 32767);
        else
            Refuse("The key " + key + " is unknown in [Station].");
    }

    void StorePort(int port, std::string device) {
        if (device.empty())
            Refuse("The device of the port is missing.");
        station_.Ports[port] = std::move(device);
    }

    void StoreWholeBursts(int port, const std::string& value) {
        if (value == "YES")
            station_.WholeBursts.insert(port);
        else if (value != "NO")
            Refuse("The value must be yes or no.");
    }

    void StoreBackup(const std::string& key, std::string value) {
        if (key == "FOLDER" && !value.empty())
            station_.BackupFolder = std::move(value);
        else if (key == "FOLDER")
            Refuse("The folder of the backups is missing.");
        else if (key == "KEEP")
            station_.BackupsKept = Whole(value, 1, mostBackups);
        else if (key == "WARNAFTERDAYS")
            station_.WarnAfterBackupDays = Whole(value, 1, mostDays);
        else
            Refuse("The key " + key + " is unknown in [Backup].");
    }

    int Whole(const std::string& text, int least, int most) const {
        int value = 0;
        const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
        // Only one spelling of each number is allowed, so that a repeated key is found.
        if (error != std::errc() || std::to_string(value) != text || value < least || value > most)
            Refuse("\"" + text + "\" is not a whole number from " + std::to_string(least) + " to " +
                   std::to_string(most) + ".");
        return value;
    }

    const std::string& path_;
    StationFile& station_;
    std::string section_;
    std::set<std::string> seen_;
    int number_ = 0;
};

} // namespace

StationFile StationFile::Read(const std::string& path) {
    StationFile station;
    std::error_code ignored;
    if (std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found)
        return station;
    std::ifstream file(path, std::ios::binary);
    LineReader reader(path, station);
    std::string line;
    for (bool first = true; std::getline(file, line); first = false) {
        if (first)
            line.erase(0, line.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
        reader.Read(line);
    }
    // Opening a folder succeeds; the first read fails.
    if (!file.is_open() || file.bad())
        throw Failure(FailureNumber::PathAccess, "The station file " + path +
                                                     " cannot be read. "
                                                     "Check the rights of this user.");
    return station;
}

std::string StationFile::PortDevice(int number) const {
    const auto named = Ports.find(number);
    if (named != Ports.end())
        return named->second;
#ifdef _WIN32
    return "COM" + std::to_string(number);
#else
    return "/dev/ttyS" + std::to_string(number - 1);
#endif
}

StationFile& TheStation() {
    static StationFile station;
    return station;
}

} // namespace Quillane
