#include "data/ConfigFile.h"

#include "platform/host/Files.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <algorithm>
#include <fstream>

namespace Quillane {

std::string ReadFirstField(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::getline(file, line);
    if (!FileExists(path))
        throw Failure(FailureNumber::FileNotFound, "File not found: " + path);
    // Opening a folder succeeds; the first read fails.
    if (!file.is_open() || file.bad())
        throw Failure(FailureNumber::PathAccess,
                      "The file " + path + " cannot be read. Check the rights of this user.");
    if (line.starts_with("\xEF\xBB\xBF"))
        line.erase(0, 3);
    if (line.empty() && file.eof())
        throw Failure(FailureNumber::InputPastEnd,
                      "Input past end of file: " + path + " is empty.");
    line.erase(std::min(line.find('\r'), line.size()));
    line.erase(0, line.find_first_not_of(' '));
    if (line.starts_with('"'))
        return line.substr(1, line.find('"', 1) - 1);
    return line.substr(0, line.find(','));
}

std::string StationConnectionString(std::string_view osName, std::string_view stationRole,
                                    std::string_view configText) {
    std::string text = "Driver=SQL Server;" + std::string(configText);
    if (EqualIgnoringCase(osName, "Microsoft Windows XP") || stationRole == "Client")
        text += ";Uid=anonymous";
    return text;
}

} // namespace Quillane
