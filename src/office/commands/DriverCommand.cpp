#include "office/commands/DriverCommand.h"

#include "platform/host/StationText.h"
#include "platform/host/WholeFile.h"
#include "platform/runtime/Failure.h"

#ifndef _WIN32
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <iostream>
#include <sql.h>

#include <odbcinst.h>
#endif

namespace Quillane::Office {

bool IsDriverScope(std::string_view scope) {
    return scope == "system" || scope == "user";
}

#ifdef _WIN32

ExitCode RegisterDriver(std::string_view, Terminal&) {
    throw Failure(FailureNumber::InvalidCall,
                  "The driver \"SQL Server\" is part of Windows. Nothing needs to be registered.");
}

#else

namespace {

constexpr const char* driverName = "SQL Server";
constexpr const char* library = "libtdsodbc.so";

std::string Variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

/// The file that the driver manager reads.
std::filesystem::path DriverFile(bool isForSystem) {
    if (isForSystem)
        return std::filesystem::path(Variable("ODBCSYSINI", "/etc")) /
               Variable("ODBCINSTINI", "odbcinst.ini");
    const std::string home = Variable("HOME", "");
    if (home.empty())
        throw Failure(
            FailureNumber::PathAccess,
            "The environment variable HOME is not set. Run the command in a session of the "
            "user who needs the driver.");
    return std::filesystem::path(home) / ".odbcinst.ini";
}

/// Searches the folder of the driver manager.
bool LibraryIsInstalled() {
    Dl_info manager{};
    if (::dladdr(reinterpret_cast<const void*>(&SQLGetPrivateProfileString), &manager) == 0)
        return true;
    const std::filesystem::path folder = std::filesystem::path(manager.dli_fname).parent_path();
    return std::filesystem::exists(folder / "odbc" / library) ||
           std::filesystem::exists(folder / library);
}

void WriteDriver(const std::string& file, const std::string& text) {
    const std::string described = WithStationEntry(text, driverName, "Description",
                                                   "FreeTDS under the name that the station uses");
    try {
        WriteWholeFile(file, WithStationEntry(described, driverName, "Driver", library));
    } catch (const Failure& failure) {
        throw Failure(
            failure.Number(),
            failure.Description() +
                ". Run the command with the right to change this file, or register the driver for "
                "one user: --register-driver user");
    }
}

} // namespace

ExitCode RegisterDriver(std::string_view scope, Terminal& terminal) {
    const bool isForSystem = scope == "system";
    const std::string file = DriverFile(isForSystem).string();
    const std::string text = ReadWholeFile(file);
    if (const std::string found = StationEntry(text, driverName, "Driver"); !found.empty()) {
        terminal.out << "The driver \"" << driverName << "\" is already registered in " << file
                     << " with the library " << found << ". Nothing has been changed.\n";
        return ExitCode::Done;
    }
    WriteDriver(file, text);
    terminal.out << "The driver \"" << driverName << "\" is registered "
                 << (isForSystem ? "for all users" : "for this user") << " in " << file
                 << " with the library " << library << ".\n";
    if (!LibraryIsInstalled())
        terminal.err << "This library is not installed. Install the package tdsodbc.\n";
    return ExitCode::Done;
}

#endif

} // namespace Quillane::Office
