#include "servers/PostgresServer.h"

#include "platform/ado/Connection.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/odbc/OdbcConnect.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace Quillane {

namespace {

constexpr auto driver = "PostgreSQL Unicode";

bool RunScript(const std::string& arguments) {
    const std::string script = QUILLANE_TEST_FOLDER "/servers/postgres-server";
    return std::system(("'" + script + "' " + arguments).c_str()) == 0;
}

void RunOnServer(const std::string& statement) {
    Connection connection;
    connection.Open(PostgresServer::Shared().ConnectionString("postgres"));
    connection.Execute(statement);
}

} // namespace

PostgresServer::PostgresServer() : isOwn_(true) {
    static int count = 0;
    infoFile_ = std::filesystem::temp_directory_path() /
                ("quillane-postgres-" + std::to_string(getpid()) + "-" + std::to_string(++count));
    if (!RunScript("start '" + infoFile_ + "' " + std::to_string(getpid())))
        throw std::runtime_error("the PostgreSQL server for the tests does not start");
    ReadInfo();
}

PostgresServer::PostgresServer(std::string infoFile) : infoFile_(std::move(infoFile)) {
    ReadInfo();
}

PostgresServer::~PostgresServer() {
    if (isOwn_)
        RunScript("stop '" + infoFile_ + "'");
}

void PostgresServer::ReadInfo() {
    std::ifstream info(infoFile_);
    std::string folder;
    if (!std::getline(info, folder) || !std::getline(info, port_))
        throw std::runtime_error("no PostgreSQL server is described in " + infoFile_);
}

const PostgresServer& PostgresServer::Shared() {
    const char* infoFile = std::getenv("QUILLANE_TEST_POSTGRES");
    if (infoFile && std::filesystem::exists(infoFile)) {
        static const PostgresServer ofTheRun{std::string(infoFile)};
        return ofTheRun;
    }
    static const PostgresServer own;
    return own;
}

std::string PostgresServer::WhyMissing() {
    if (!RunScript("find >/dev/null 2>&1"))
        return "PostgreSQL is not installed (Debian package postgresql).";
    if (OdbcDriverLibrary(ConnectionAttributes(std::string("Driver=") + driver)).empty())
        return "The ODBC driver for PostgreSQL is not installed (Debian package odbc-postgresql).";
    return {};
}

std::string PostgresServer::ConnectionString(std::string_view database,
                                             std::string_view more) const {
    return std::string("Driver=") + driver + ";Server=127.0.0.1;Port=" + port_ +
           ";UID=quillane;PWD=wheat;Database=" + std::string(database) + std::string(more);
}

void PostgresServer::Kill() const {
    if (!RunScript("kill '" + infoFile_ + "'"))
        throw std::runtime_error("the PostgreSQL server cannot be killed");
}

void PostgresServer::StartAgain() {
    if (!RunScript("restart '" + infoFile_ + "'"))
        throw std::runtime_error("the killed PostgreSQL server does not start again");
    ReadInfo();
}

PostgresDatabase::PostgresDatabase() {
    static int count = 0;
    name_ = "account1_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    RunOnServer("CREATE DATABASE " + name_);
}

PostgresDatabase::~PostgresDatabase() {
    try {
        RunOnServer("DROP DATABASE " + name_ + " WITH (FORCE)");
    } catch (const std::exception&) {
        // The server's data is removed at the end of the tests anyway.
    }
}

} // namespace Quillane
