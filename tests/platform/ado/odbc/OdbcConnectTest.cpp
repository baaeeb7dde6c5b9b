#include "platform/ado/odbc/OdbcConnect.h"

#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionString.h"
#include "platform/ado/Engine.h"
#include "support/FailureOf.h"

namespace Quillane {

namespace {

struct TextCase {
    std::string_view given;
    bool isFreeTds;
    std::string_view sent;
};

TEST(OdbcConnectionText, TellsFreeTdsWhatTheStringDoesNotSay) {
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
        EXPECT_EQ(OdbcConnectionText(ConnectionString(item.given), SignIn{}, item.isFreeTds),
                  item.sent);
}

TEST(OdbcConnectionText, HoldsTheUserAndThePasswordOfTheSignIn) {
    SignIn signIn;
    signIn.userId = "miller";
    signIn.password = "a;b}c";
    EXPECT_EQ(OdbcConnectionText(ConnectionString("Server=mill"), signIn, false),
              "Server=mill;UID=miller;PWD={a;b}}c}");
}

TEST(OdbcDriverLibrary, IsThePathWhereTheStringNamesOne) {
    EXPECT_EQ(OdbcDriverLibrary(ConnectionString("Driver=/opt/lib/libtdsodbc.so;Server=mill")),
              "/opt/lib/libtdsodbc.so");
}

TEST(OdbcDriverLibrary, IsEmptyForADriverThatNobodyRegistered) {
    for (const auto* text :
         {"Driver=No such driver;Server=mill", "DSN=no such source", "Server=mill"})
        EXPECT_EQ(OdbcDriverLibrary(ConnectionString(text)), "") << text;
}

TEST(OdbcConnect, NamesThePackageOfAMissingDriver) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"SQL Server of no mill", "tdsodbc"},
        {"/no/such/libtdsodbc.so", "tdsodbc"},
        {"PostgreSQL of no mill", "odbc-postgresql"},
        {"No such driver", "/etc/odbcinst.ini"},
    };
    for (const auto& [driver, package] : cases) {
        Connection connection;
        const std::string words = DatabaseFailureOf(
            [&] { connection.Open("Driver=" + std::string(driver) + ";Server=127.0.0.1"); });
        EXPECT_EQ(words.find("The ODBC driver \"" + std::string(driver) + "\" is not installed"),
                  0U)
            << words;
        EXPECT_NE(words.find(package), std::string::npos) << words;
        EXPECT_NE(words.find("\n[unixODBC]"), std::string::npos) << "the driver manager's words";
        EXPECT_EQ(connection.State(), adStateClosed);
    }
}

} // namespace

} // namespace Quillane
