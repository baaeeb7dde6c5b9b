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

bool IsDriverPlace(std::string_view place) {
    return place == "system" || place == "user";
}

#ifdef _WIN32

ExitCode RegisterDriver(std::string_view, Terminal&) {
    throw Failure(FailureNumber::InvalidCall,
                  "The driver \"SQL Server\" belongs to Windows: there is nothing to register.");
}

#else

namespace {

constexpr const char* driverName = "SQL Server";
constexpr const char* library = "libtdsodbc.so";

std::string Variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

/// As the driver manager finds it.
std::filesystem::path DriverFile(bool isForSystem) {
    if (isForSystem)
        return std::filesystem::path(Variable("ODBCSYSINI", "/etc")) /
               Variable("ODBCINSTINI", "odbcinst.ini");
    const std::string home = Variable("HOME", "");
    if (home.empty())
        throw Failure(FailureNumber::PathAccess,
                      "The variable HOME names no folder. Please run the command in the session of "
                      "the user who is to have the driver.");
    return std::filesystem::path(home) / ".odbcinst.ini";
}

/// Looked for where the driver manager is installed.
bool LibraryIsInstalled() {
    Dl_info manager{};
    if (::dladdr(reinterpret_cast<const void*>(&SQLGetPrivateProfileString), &manager) == 0)
        return true;
    const std::filesystem::path folder = std::filesystem::path(manager.dli_fname).parent_path();
    return std::filesystem::exists(folder / "odbc" / library) ||
           std::filesystem::exists(folder / library);
}

void WriteDriver(const std::string& file, const std::string& text) {
    const std::string described = WithStationEntry(
        text, driverName, "Description", "FreeTDS under the name that the station looks for");
    try {
        WriteWholeFile(file, WithStationEntry(described, driverName, "Driver", library));
    } catch (const Failure& failure) {
        throw Failure(
            failure.Number(),
            failure.Description() +
                ". Please run the command with the right to change this file, or register "
                "the driver for one user: --register-driver user");
    }
}

} // namespace

ExitCode RegisterDriver(std::string_view place, Terminal& terminal) {
    const bool isForSystem = place == "system";
    const std::string file = DriverFile(isForSystem).string();
    const std::string text = ReadWholeFile(file);
    if (const std::string found = StationEntry(text, driverName, "Driver"); !found.empty()) {
        terminal.out << "The driver \"" << driverName << "\" is already registered in " << file
                     << " with the library " << found << ". Nothing is changed.\n";
        return ExitCode::Done;
    }
    WriteDriver(file, text);
    terminal.out << "The driver \"" << driverName << "\" is registered "
                 << (isForSystem ? "for all users" : "for this user") << " in " << file
                 << " with the library " << library << ".\n";
    if (!LibraryIsInstalled())
        terminal.err
            << "This library is not on the computer. Please install the package tdsodbc.\n";
    return ExitCode::Done;
}

#endif

} // namespace Quillane::Office
