#include "platform/ado/odbc/OdbcConnect.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcText.h"

#include <odbcinst.h>

#include <algorithm>
#include <cstdint>

namespace Quillane {

namespace {

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

std::string RegisteredDriver(const std::string& section, const char* file) {
    char library[1024] = {};
    const int length =
        SQLGetPrivateProfileString(section.c_str(), "Driver", "", library, sizeof library, file);
    return {library, static_cast<std::size_t>(std::max(length, 0))};
}

std::string DriverNamed(const ConnectionString& connection) {
    const std::string driver = connection.Get("Driver");
    if (!driver.empty())
        return driver;
    const std::string source = connection.Get("DSN");
    return source.empty() ? std::string() : RegisteredDriver(source, "odbc.ini");
}

/// In braces where it has to be, so that whatever a password holds stays one value: some drivers
/// take the braces of a plain value for a part of it.
std::string Entry(std::string_view key, std::string_view value) {
    std::string text = ";" + std::string(key) + "=";
    if (value.find_first_of("{}[](),;?*=!@ ") == std::string_view::npos)
        return text + std::string(value);
    text += '{';
    for (const char c : value)
        text += c == '}' ? std::string("}}") : std::string(1, c);
    return text + "}";
}

/// The driver manager finds no driver of the name, or not the library that is registered for it.
bool DriverIsMissing(const std::vector<OdbcDiagnostic>& diagnostics) {
    return std::any_of(diagnostics.begin(), diagnostics.end(), [](const OdbcDiagnostic& told) {
        return told.state == "IM002" || told.state == "IM003" ||
               told.words.find("Can't open lib") != std::string::npos;
    });
}

[[noreturn]] void FailToConnect(const OdbcHandle& handle, const ConnectionString& connection) {
    const std::vector<OdbcDiagnostic> diagnostics = OdbcDiagnosticsOf(handle);
    std::string description = DescriptionOf(diagnostics);
    if (DriverIsMissing(diagnostics))
        description = MissingDriverAdvice(DriverNamed(connection)) + "\n" + description;
    FailDatabase(description.empty() ? "The database driver cannot connect." : description);
}

} // namespace

std::string OdbcDriverLibrary(const ConnectionString& connection) {
    const std::string driver = DriverNamed(connection);
    if (driver.find('/') != std::string::npos)
        return driver;
    return driver.empty() ? driver : RegisteredDriver(driver, "odbcinst.ini");
}

std::string MissingDriverAdvice(const std::string& driver) {
    const std::string lower = Lower(driver);
    if (lower.find("sql server") != std::string::npos || lower.find("tds") != std::string::npos)
        return "The ODBC driver \"" + driver +
               "\" is not installed. On Debian the package tdsodbc brings it; the file "
               "/etc/odbcinst.ini must then hold a section named [" +
               driver + "] with the line Driver=libtdsodbc.so.";
    if (lower.find("postgres") != std::string::npos || lower.find("psql") != std::string::npos)
        return "The ODBC driver \"" + driver +
               "\" is not installed. On Debian the package odbc-postgresql brings it.";
    return "The ODBC driver \"" + driver +
           "\" is not installed, or the file /etc/odbcinst.ini does not name it.";
}

std::string OdbcConnectionText(const ConnectionString& connection, const SignIn& signIn,
                               bool driverIsFreeTds) {
    std::string text = connection.Whole();
    while (text.ends_with(';') || text.ends_with(' '))
        text.pop_back();
    if (!signIn.userId.empty())
        text += Entry("UID", signIn.userId);
    if (!signIn.password.empty())
        text += Entry("PWD", signIn.password);
    const auto add = [&](const std::string& key, const char* value) {
        if (connection.Get(key).empty())
            text += ";" + key + "=" + value;
    };
    if (driverIsFreeTds)
        add("ClientCharset", "UTF-8");
    const bool isDescribedElsewhere =
        !connection.Get("Servername").empty() || !connection.Get("DSN").empty();
    if (driverIsFreeTds && !isDescribedElsewhere)
        add("TDS_Version", "7.4");
    return text;
}

OdbcHandle ConnectByOdbc(const OdbcHandle& environment, const ConnectionString& connection,
                         const SignIn& signIn) {
    OdbcHandle handle(SQL_HANDLE_DBC, environment);
    const auto seconds = static_cast<std::uintptr_t>(std::max(signIn.timeoutSeconds, 0));
    handle.Check(SQLSetConnectAttrW(handle.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                                    reinterpret_cast<SQLPOINTER>(seconds), SQL_IS_UINTEGER));
    const bool isFreeTds =
        Lower(OdbcDriverLibrary(connection)).find("tdsodbc") != std::string::npos;
    OdbcText text = ToOdbc(OdbcConnectionText(connection, signIn, isFreeTds));
    const SQLRETURN outcome = SQLDriverConnectW(handle.Get(), nullptr, text.data(), SQL_NTS,
                                                nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO)
        FailToConnect(handle, connection);
    return handle;
}

} // namespace Quillane
