#include "platform/ado/odbc/OdbcConnect.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "support/FailureOf.h"

namespace Quillane {

namespace {

/// `FailureOf` returns a copy without the codes.
template <typename Action>
EngineCodes CodesOfFailure(Action action) {
    try {
        action();
    } catch (const Failure& failure) {
        return CodesOf(failure);
    }
    return {};
}

struct TextCase {
    std::string_view given;
    bool isFreeTds;
    std::string_view sent;
};

TEST(OdbcConnectionText, AddsTheMissingAttributesForFreeTds) {
    const TextCase cases[] = {
        {"Driver=SQL Server;Server=mill", true,
         "Driver=SQL Server;Server=mill;ClientCharset=UTF-8;TDS_Version=7.4"},
        {"Driver=SQL Server;Server=mill; ", true,
         "Driver=SQL Server;Server=mill;ClientCharset=UTF-8;TDS_Version=7.4"},
        {"Driver=SQL Server;Server=mill;clientcharset=UTF-16;tds_version=7.3", true,
         "Driver=SQL Server;Server=mill;clientcharset=UTF-16;tds_version=7.3"},
        {"Driver=SQL Server;Servername=mill", true,
         "Driver=SQL Server;Servername=mill;ClientCharset=UTF-8"},
        {"DSN=mill", true, "DSN=mill;ClientCharset=UTF-8"},
        {"Driver=SQL Server;Server=mill", false, "Driver=SQL Server;Server=mill"},
        {"Driver=SQL Server;Server=mill;PWD={a;b};Uid=anonymous", false,
         "Driver=SQL Server;Server=mill;PWD={a;b};Uid=anonymous"},
    };
    for (const TextCase& item : cases)
        EXPECT_EQ(OdbcConnectionText(ConnectionAttributes(item.given), SignIn{}, item.isFreeTds),
                  item.sent);
}

TEST(OdbcConnectionText, ContainsTheUserAndThePasswordOfTheSignIn) {
    SignIn signIn;
    signIn.userId = "miller";
    signIn.password = "a;b}c";
    EXPECT_EQ(OdbcConnectionText(ConnectionAttributes("Server=mill"), signIn, false),
              "Server=mill;UID=miller;PWD={a;b}}c}");
}

TEST(OdbcDriverLibrary, IsThePathIfTheStringNamesOne) {
    EXPECT_EQ(OdbcDriverLibrary(ConnectionAttributes("Driver=/opt/lib/libtdsodbc.so;Server=mill")),
              "/opt/lib/libtdsodbc.so");
}

TEST(OdbcDriverLibrary, IsEmptyForAnUnregisteredDriver) {
    for (const auto* text :
         {"Driver=No such driver;Server=mill", "DSN=no such source", "Server=mill"})
        EXPECT_EQ(OdbcDriverLibrary(ConnectionAttributes(text)), "") << text;
}

TEST(OdbcConnect, NamesThePackageOfAMissingDriver) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"SQL Server of nobody", "tdsodbc"},
        {"/no/such/libtdsodbc.so", "tdsodbc"},
        {"PostgreSQL of nobody", "odbc-postgresql"},
        {"No such driver", "/etc/odbcinst.ini"},
    };
    for (const auto& [driver, package] : cases) {
        Connection connection;
        const std::string text = "Driver=" + std::string(driver) + ";Server=127.0.0.1";
        EXPECT_EQ(CodesOfFailure([&] { connection.Open(text); }).state, "IM002");
        const std::string words = DatabaseFailureOf([&] { connection.Open(text); });
        EXPECT_EQ(words.find("The ODBC driver \"" + std::string(driver) + "\" is not installed"),
                  0U)
            << words;
        EXPECT_NE(words.find(package), std::string::npos) << words;
        EXPECT_NE(words.find("\n[unixODBC]"), std::string::npos) << "the driver manager's text";
        EXPECT_EQ(connection.State(), adStateClosed);
    }
}

} // namespace

} // namespace Quillane
