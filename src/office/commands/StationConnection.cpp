#include "office/commands/StationConnection.h"

#include "data/ConfigFile.h"
#include "data/EmbeddedFunctions.h"
#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/host/Files.h"
#include "platform/host/StationFile.h"
#include "platform/host/SystemInfo.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/FileAccess.h"
#include "platform/runtime/Text.h"
#include "setup/SchemaMessages.h"
#include "setup/SchemaUpgrade.h"
#include "setup/StationSetup.h"

#include <algorithm>

namespace Quillane::Office {

namespace {

constexpr int connectionTimeoutSeconds = 120;

/// The length of the first attribute, without its semicolon. A value in braces may contain
/// semicolons.
std::size_t EndOfAttribute(std::string_view text) {
    const std::size_t equals = text.find('=');
    const bool inBraces =
        equals != std::string_view::npos && text.substr(equals + 1).starts_with('{');
    const std::size_t from = inBraces ? text.find("};", equals) : 0;
    if (from == std::string_view::npos)
        return text.size();
    return std::min(text.find(';', from), text.size());
}

bool IsOfSignIn(std::string_view attribute) {
    const std::string_view key = Trim(attribute.substr(0, attribute.find('=')));
    return EqualIgnoringCase(key, "UID") || EqualIgnoringCase(key, "PWD") ||
           EqualIgnoringCase(key, "Trusted_Connection");
}

void CheckSchema(Connection& connection) {
    const double version = ReadSchemaVersion(connection);
    if (version == SchemaVersionOfProgram())
        return;
    if (version == UnreadableSchemaVersion)
        FailDatabase(UnreadableSchemaText() + " Ask the person who maintains the database.");
    FailDatabase(version > SchemaVersionOfProgram()
                     ? NewerSchemaText(version)
                     : OlderSchemaText(version) + " Start the station once to upgrade it.");
}

} // namespace

std::string WithoutSignIn(std::string_view fragment) {
    std::string kept;
    while (!fragment.empty()) {
        const std::size_t end = EndOfAttribute(fragment);
        const std::string_view attribute = fragment.substr(0, end);
        if (!IsOfSignIn(attribute))
            kept += (kept.empty() ? "" : ";") + std::string(attribute);
        fragment.remove_prefix(std::min(end + 1, fragment.size()));
    }
    return kept;
}

std::string EmbeddedDatabaseOf(const std::string& folder) {
    const std::string config = folder + "/Config.ini";
    if (!FileExists(config))
        return EmbeddedDatabasePath(folder);
    const ConnectionAttributes attributes(ReadFirstField(config));
    if (!EqualIgnoringCase(attributes.Get("Server"), "(embedded)"))
        return {};
    return folder + "/" + attributes.Get("Database") + ".db";
}

void OpenStationDatabase(Connection& connection, const std::string& folder,
                         const ServerSignIn& signIn,
                         std::function<std::unique_ptr<LockWait>()> waitForLock) {
    const std::string config = folder + "/Config.ini";
    if (!FileExists(config))
        throw Failure(
            FailureNumber::FileNotFound,
            "There is no " + config +
                ". Start the station first to set up its database, or name another folder "
                "with --station.");
    connection.SetEmbeddedSupport({.folder = folder,
                                   .registerFunctions = RegisterEmbeddedFunctions,
                                   .waitForLock = std::move(waitForLock)});
    connection.ConnectionTimeout = connectionTimeoutSeconds;
    RemoveAccessOfOthers(config); // it may contain a password
    const std::string fragment = ReadFirstField(config);
    if (signIn.name.empty())
        connection.Open(
            StationConnectionString(SystemInfo::OsName(), TheStation().StationRole, fragment));
    else
        connection.Open("Driver=SQL Server;" + WithoutSignIn(fragment), signIn.name,
                        signIn.password);
    connection.CursorLocation = adUseClient;
    CheckSchema(connection);
}

} // namespace Quillane::Office
