#include "platform/host/StationFolder.h"

#include "platform/host/Files.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Paths.h"

#include <QCoreApplication>
#include <QDir>

#include <filesystem>
#include <system_error>
#include <utility>

namespace Quillane {

namespace {

namespace fs = std::filesystem;

std::string& Folder() {
    static std::string folder;
    return folder;
}

std::string SystemFolder() {
#ifdef Q_OS_WIN
    return qEnvironmentVariable("ProgramData", "C:/ProgramData").toStdString() + "/Quillane";
#else
    return "/var/lib/quillane";
#endif
}

// The result has no "." or ".." and, unless it is the root, no separator at its end.
std::string Absolute(const std::string& path) {
    return QDir::cleanPath(QDir().absoluteFilePath(QString::fromStdString(path))).toStdString();
}

[[noreturn]] void Refuse(const std::string& folder, const std::string& why) {
    throw Failure(FailureNumber::PathAccess, "The station folder " + folder + " " + why);
}

} // namespace

std::string StationFolder() {
    return Folder();
}

void SetStationFolder(std::string folder) {
    Folder() = std::move(folder);
}

StationFolderSources SourcesOfThisProcess(std::string option) {
    return {.option = std::move(option),
            .variable = qEnvironmentVariable("QUILLANE_STATION").toStdString(),
            .program = QCoreApplication::applicationDirPath().toStdString(),
            .system = SystemFolder()};
}

std::string ChooseStationFolder(const StationFolderSources& sources) {
    if (!sources.option.empty())
        return Absolute(sources.option);
    if (!sources.variable.empty())
        return Absolute(sources.variable);
    return Absolute(FileExists(sources.program + "/Config.ini") ? sources.program : sources.system);
}

void CheckStationFolder(const std::string& folder) {
    std::error_code error;
    const fs::file_type type = fs::status(PathOf(folder), error).type();
    if (type == fs::file_type::not_found)
        Refuse(folder, "does not exist. Create it, or name another folder with the option "
                       "--station.");
    if (type != fs::file_type::directory && type != fs::file_type::none)
        Refuse(folder, "is not a folder. Name a folder with the option --station.");
    static_cast<void>(fs::status(PathOf(folder + "/Config.ini"), error));
    if (error == std::errc::permission_denied)
        Refuse(folder, "cannot be opened: this user has no rights to it. Ask the administrator of "
                       "the computer for these rights, or name another folder with the option "
                       "--station.");
}

} // namespace Quillane
