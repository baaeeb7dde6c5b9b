#include "servers/TdsServer.h"

#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/odbc/OdbcConnect.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace Quillane {

namespace {

std::string FirstLine(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::string Quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

} // namespace

TdsServer::TdsServer() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillane-tds-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no folder for the test server");
    folder_ = pattern;
    const std::string command = Quoted(QUILLANE_TEST_FOLDER "/servers/tds-server") + " " +
                                Quoted(folder_ / "port") + " " + Quoted(folder_ / "log") + " " +
                                std::to_string(getpid()) + " & echo $! >" +
                                Quoted(folder_ / "process");
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    bool runs = std::system(command.c_str()) == 0;
    while (runs && port_.empty()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        port_ = FirstLine(folder_ / "port");
        runs = std::chrono::steady_clock::now() < deadline;
    }
    if (port_.empty())
        throw std::runtime_error("the test server does not start");
}

TdsServer::~TdsServer() {
    kill(std::atoi(FirstLine(folder_ / "process").c_str()), SIGKILL);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string TdsServer::WhyMissing() {
    return OdbcDriverLibrary(ConnectionAttributes("Driver=FreeTDS")).empty()
               ? "The ODBC driver FreeTDS is not installed (Debian package tdsodbc)."
               : "";
}

std::string TdsServer::ConnectionString() const {
    return "Driver=FreeTDS;Server=127.0.0.1;Port=" + port_ + ";Database=Account1;UID=miller";
}

std::vector<std::string> TdsServer::TakeArrived() {
    std::ifstream log(folder_ / "log");
    std::vector<std::string> arrived;
    std::size_t number = 0;
    for (std::string line; std::getline(log, line); ++number)
        if (number >= taken_)
            arrived.push_back(line);
    taken_ = number;
    return arrived;
}

} // namespace Quillane
