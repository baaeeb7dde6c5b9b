#include "shell/About.h"

#include "data/Con.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"
#include "platform/host/StationFolder.h"
#include "platform/host/SystemInfo.h"
#include "platform/host/Version.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "setup/SchemaUpgrade.h"

#include <QGuiApplication>
#include <QSysInfo>

#include <functional>

namespace Quillane {

namespace {

/// The answer of the database, or the failure text, because the other facts are needed in that case
/// too.
std::string AnswerOrFailure(const std::function<std::string()>& ask) {
    try {
        return ask();
    } catch (const Failure& failure) {
        return "unknown (" + failure.Description() + ")";
    }
}

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

std::string DatabaseLocation() {
    const std::string file = Con->DatabaseFile();
    return file.empty() ? Con->DefaultDatabase() + " on a database server" : file;
}

std::string EngineVersion() {
    return Con->DatabaseFile().empty()
               ? FirstLine(Con->Execute("Select @@VERSION").Fields(0).Text())
               : "SQLite " + Con->Execute("Select sqlite_version()").Fields(0).Text();
}

std::string SchemaVersions() {
    return NumberText(ReadSchemaVersion(*Con)) +
           " (this program: " + NumberText(SchemaVersionOfProgram()) + ")";
}

} // namespace

std::string AboutText() {
    return "Quillane " + std::string(QuillaneVersion()) + "\r\nSystem: " + SystemInfo::OsName() +
           ", " + FromQt(QSysInfo::currentCpuArchitecture()) + "\r\nToolkit: Qt " + qVersion() +
           ", display " + FromQt(QGuiApplication::platformName()) +
           "\r\nStation folder: " + StationFolder() +
           "\r\nDatabase: " + AnswerOrFailure(DatabaseLocation) +
           "\r\nEngine: " + AnswerOrFailure(EngineVersion) +
           "\r\nSchema version: " + AnswerOrFailure(SchemaVersions);
}

void ShowAbout() {
    MsgBox({.text = AboutText() + "\r\n\r\nPress Ctrl+C to copy this text for a fault report.",
            .title = "About Quillane",
            .icon = BoxIcon::Information,
            .buttons = BoxButtons::Ok});
}

} // namespace Quillane
