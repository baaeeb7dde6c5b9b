#include "platform/ado/EmbeddedFolder.h"

#include <sqlite3.h>

#include <cstdlib>
#include <stdexcept>

namespace Quillane {

EmbeddedFolder::EmbeddedFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillane-ado-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no folder for the test database");
    folder_ = pattern;
    RunScript("CREATE TABLE Project_Registry (registrykey TEXT, value TEXT)");
}

EmbeddedFolder::~EmbeddedFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void EmbeddedFolder::RunScript(std::string_view script) const {
    sqlite3* database = nullptr;
    sqlite3_open(File().string().c_str(), &database);
    char* message = nullptr;
    sqlite3_exec(database, std::string(script).c_str(), nullptr, nullptr, &message);
    const std::string failure = message ? message : "";
    sqlite3_free(message);
    sqlite3_close(database);
    if (!failure.empty())
        throw std::runtime_error(failure);
}

EmbeddedSupport EmbeddedFolder::Support() const {
    return {folder_.string(), {}, std::chrono::milliseconds(30'000)};
}

void EmbeddedFolder::Open(Connection& connection) const {
    connection.SetEmbeddedSupport(Support());
    connection.Open(connectionString);
}

} // namespace Quillane
