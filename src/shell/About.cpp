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

/// What the database says, or that it says nothing: the other facts are wanted all the more then.
std::string Asked(const std::function<std::string()>& ask) {
    try {
        return ask();
    } catch (const Failure& failure) {
        return "unknown (" + failure.Description() + ")";
    }
}

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

std::string PlaceOfDatabase() {
    const std::string file = Con->DatabaseFile();
    return file.empty() ? Con->DefaultDatabase() + " on a database server" : file;
}

std::string EngineVersion() {
    return Con->DatabaseFile().empty()
               ? FirstLine(Con->Execute("Select @@VERSION").Fields(0).Text())
               : "SQLite " + Con->Execute("Select sqlite_version()").Fields(0).Text();
}

std::string SchemaNumbers() {
    return NumberText(ReadSchemaVersion(*Con)) +
           " (this program: " + NumberText(SchemaVersionOfProgram()) + ")";
}

} // namespace

std::string AboutText() {
    return "Quillane " + std::string(QuillaneVersion()) + "\r\nSystem: " + SystemInfo::OsName() +
           ", " + FromQt(QSysInfo::currentCpuArchitecture()) + "\r\nToolkit: Qt " + qVersion() +
           ", display " + FromQt(QGuiApplication::platformName()) +
           "\r\nStation folder: " + StationFolder() + "\r\nDatabase: " + Asked(PlaceOfDatabase) +
           "\r\nEngine: " + Asked(EngineVersion) + "\r\nSchema number: " + Asked(SchemaNumbers);
}

void ShowAbout() {
    MsgBox({.text = AboutText() + "\r\n\r\nCtrl+C copies this text, for a report of a fault.",
            .title = "About Quillane",
            .icon = BoxIcon::Information,
            .buttons = BoxButtons::Ok});
}

} // namespace Quillane
