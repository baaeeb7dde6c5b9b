#include "servers/SqlServerDatabase.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Text.h"

#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace Quillane {

namespace {

constexpr auto fragmentFile = QUILLANE_TEST_FOLDER "/sqlserver.local";

std::string Fragment() {
    std::ifstream file(fragmentFile);
    std::string line;
    if (!std::getline(file, line))
        throw std::runtime_error(
            "No file tests/sqlserver.local names a SQL Server; see README.md.");
    return line;
}

/// Replaces the database of the fragment by the one of the test.
std::string ConnectionText(const std::string& database) {
    std::string text = "Driver=SQL Server;Database=" + database;
    const std::string fragment = Fragment();
    for (std::size_t begin = 0; begin < fragment.size();) {
        const std::size_t end = std::min(fragment.find(';', begin), fragment.size());
        const std::string entry = fragment.substr(begin, end - begin);
        if (!EqualIgnoringCase(entry.substr(0, 9), "Database="))
            text += ";" + entry;
        begin = end + 1;
    }
    return text;
}

void RunOnServer(const std::string& statement) {
    Connection connection;
    connection.Open(ConnectionText("master"));
    connection.Execute(statement);
}

} // namespace

SqlServerDatabase::SqlServerDatabase() {
    static int count = 0;
    name_ = "Account1_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    RunOnServer("CREATE DATABASE " + name_);
}

SqlServerDatabase::~SqlServerDatabase() {
    try {
        RunOnServer("DROP DATABASE " + name_);
    } catch (const std::exception&) {
        // The next test is not affected: its database has another name.
    }
}

std::string SqlServerDatabase::WhyMissing() {
    return std::ifstream(fragmentFile)
               ? ""
               : "No SQL Server is named for the tests (file tests/sqlserver.local).";
}

std::string SqlServerDatabase::ConnectionString() const {
    return ConnectionText(name_);
}

} // namespace Quillane
