#include "platform/ado/odbc/OdbcConnect.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcText.h"
#include "platform/runtime/Text.h"

#include <odbcinst.h>

#include <algorithm>
#include <cstdint>

namespace Quillane {

namespace {

constexpr const char* driverNotFound = "IM002";

bool HoldsIgnoringCase(std::string_view text, std::string_view part) {
    return UpperCase(text).find(UpperCase(part)) != std::string::npos;
}

std::string RegisteredDriver(const std::string& section, const char* file) {
    char library[1024] = {};
    const int length =
        SQLGetPrivateProfileString(section.c_str(), "Driver", "", library, sizeof library, file);
    return {library, static_cast<std::size_t>(std::max(length, 0))};
}

std::string DriverNamed(const ConnectionAttributes& connection) {
    const std::string driver = connection.Get("Driver");
    if (!driver.empty())
        return driver;
    const std::string source = connection.Get("DSN");
    return source.empty() ? std::string() : RegisteredDriver(source, "odbc.ini");
}

/// The value is in braces only if it must be: some drivers take the braces as a part of a plain
/// value.
std::string Entry(std::string_view key, std::string_view value) {
    std::string text = ";" + std::string(key) + "=";
    if (value.find_first_of("{}[](),;?*=!@ ") == std::string_view::npos)
        return text + std::string(value);
    return text + "{" + Doubled(value, '}') + "}";
}

/// The driver manager does not find the driver, or not the library that is registered for it. For
/// the latter unixODBC gives only a warning.
bool DriverIsMissing(const std::vector<OdbcDiagnostic>& diagnostics) {
    const bool isNamed = std::ranges::any_of(diagnostics, [](const OdbcDiagnostic& diagnostic) {
        return diagnostic.state == driverNotFound || diagnostic.state == "IM003";
    });
    return isNamed || (!diagnostics.empty() && !HasFailed(diagnostics));
}

[[noreturn]] void FailToConnect(const OdbcHandle& handle, const ConnectionAttributes& connection) {
    const std::vector<OdbcDiagnostic> diagnostics = OdbcDiagnosticsOf(handle);
    const std::string message = MessageOf(diagnostics);
    if (DriverIsMissing(diagnostics))
        FailDatabase(MissingDriverAdvice(DriverNamed(connection)) + "\n" + message,
                     {driverNotFound});
    FailDatabase(message.empty() ? "The database driver cannot connect." : message,
                 CodesOf(diagnostics));
}

} // namespace

std::string OdbcDriverLibrary(const ConnectionAttributes& connection) {
    const std::string driver = DriverNamed(connection);
    if (driver.find('/') != std::string::npos)
        return driver;
    return driver.empty() ? driver : RegisteredDriver(driver, "odbcinst.ini");
}

std::string MissingDriverAdvice(const std::string& driver) {
    if (HoldsIgnoringCase(driver, "sql server") || HoldsIgnoringCase(driver, "tds"))
        return "The ODBC driver \"" + driver +
               "\" is not installed. On Debian it is in the package tdsodbc; the file "
               "/etc/odbcinst.ini must then contain a section named [" +
               driver + "] with the line Driver=libtdsodbc.so.";
    if (HoldsIgnoringCase(driver, "postgres") || HoldsIgnoringCase(driver, "psql"))
        return "The ODBC driver \"" + driver +
               "\" is not installed. On Debian it is in the package odbc-postgresql.";
    return "The ODBC driver \"" + driver +
           "\" is not installed, or the file /etc/odbcinst.ini does not name it.";
}

std::string OdbcConnectionText(const ConnectionAttributes& connection, const SignIn& signIn,
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

OdbcHandle ConnectByOdbc(const OdbcHandle& environment, const ConnectionAttributes& connection,
                         const SignIn& signIn) {
    OdbcHandle handle(SQL_HANDLE_DBC, environment);
    const auto seconds = static_cast<std::uintptr_t>(std::max(signIn.timeoutSeconds, 0));
    handle.Check(SQLSetConnectAttrW(handle.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                                    reinterpret_cast<SQLPOINTER>(seconds), SQL_IS_UINTEGER));
    const bool isFreeTds = HoldsIgnoringCase(OdbcDriverLibrary(connection), "tdsodbc");
    OdbcText text = ToOdbc(OdbcConnectionText(connection, signIn, isFreeTds));
    const SQLRETURN outcome = SQLDriverConnectW(handle.Get(), nullptr, text.data(), SQL_NTS,
                                                nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO)
        FailToConnect(handle, connection);
    return handle;
}

} // namespace Quillane
